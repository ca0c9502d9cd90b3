#include "tools/JsonCommand.h"

#include "tools/CatalogJson.h"
#include "tools/CatalogSession.h"
#include "tools/CommandOutput.h"
#include "tools/ExitStatus.h"
#include "tools/LogOutput.h"

#include <QJsonDocument>

namespace Orvida::Tools {

int json(const JsonOptions &options)
{
    const LogOutput log(false);
    CatalogSession session(options.fileName);
    const Catalogs::CatalogSptr catalog = session.load();
    if (!catalog)
        return NotReadable;
    const QJsonDocument document(catalogToJson(*catalog, session.profiles(), session.style()));
    CommandOutput output;
    output.stream() << QString::fromUtf8(
        document.toJson(options.isCompact ? QJsonDocument::Compact : QJsonDocument::Indented));
    if (options.isCompact)
        output.stream() << '\n';
    return output.finish(Done);
}

} // namespace Orvida::Tools
