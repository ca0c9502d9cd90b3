#include "tools/LoadReport.h"

#include "tools/LooseEnds.h"

namespace Orvida::Tools {

bool reportLoad(CatalogFile &file)
{
    if (!file.isLoaded()) {
        printFailure(file.name(), file.failure());
        return false;
    }
    const QString otherForm = file.otherFormText();
    if (!otherForm.isEmpty())
        printWarning(file.name(), {}, otherForm);
    // A file with another root element loads well, as an empty catalog.
    if (file.catalog().getCatalogItems().size() == 1)
        printWarning(file.name(), {}, QStringLiteral("no codes in this catalog; is its root element OVCAT?"));
    if (file.hasLooseEnds())
        reportLooseEnds(file);
    return true;
}

} // namespace Orvida::Tools
