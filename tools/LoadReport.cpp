#include "tools/LoadReport.h"

#include "catalogs/format/CatalogFormat.h"
#include "tools/LooseEnds.h"
#include "tools/Messages.h"

#include <QStringList>

#include <algorithm>

namespace Orvida::Tools {

namespace {

using Catalogs::CatalogFormat;
using Catalogs::CatalogReadFailure;

QString problem(const CatalogReadFailure &failure)
{
    switch (failure.reason) {
    case CatalogReadFailure::FileNotRead: return QStringLiteral("cannot read the file: ") + failure.detail;
    case CatalogReadFailure::NotWellFormed: return QStringLiteral("not well-formed XML: ") + failure.detail;
    case CatalogReadFailure::RecordRefused:
        return failure.record + QStringLiteral(" record without ")
               + failure.missingFields.join(QStringLiteral(" and without "));
    case CatalogReadFailure::None: break;
    }
    return QStringLiteral("the catalog did not load, but its file reads well now");
}

// A scrambled key in the clear decodes to something else, often to nothing.
bool lacksScrambledKey(const CatalogReadFailure &failure)
{
    const QStringList &fields = failure.missingFields;
    return std::any_of(fields.cbegin(), fields.cend(),
                       [](const QString &field) { return CatalogFormat::isScrambled(field); });
}

QString remedy(const CatalogReadFailure &failure)
{
    switch (failure.reason) {
    case CatalogReadFailure::FileNotRead:
        return QStringLiteral("check the name of the file and the right to read it");
    case CatalogReadFailure::NotWellFormed:
        return QStringLiteral("correct the XML there; a catalog loads as a whole or not at all");
    case CatalogReadFailure::RecordRefused:
        return QStringLiteral("give the record a %1 that is not empty, or remove the record; one such record "
                              "keeps the whole catalog from loading")
            .arg(failure.missingFields.value(0));
    case CatalogReadFailure::None: break;
    }
    return QStringLiteral("try again");
}

// That the file is to be loaded as the other form.
QString otherForm(const CatalogFile &file)
{
    if (file.form() == TextForm::Readable)
        return QStringLiteral("the file is scrambled already; leave --readable out");
    return QStringLiteral(
        "this is the readable form of a catalog, and hosts read nothing of its captions and "
        "codes; use --readable, or scramble the file");
}

void reportFailure(const QString &name, const CatalogReadFailure &failure, const QString &remedyText)
{
    printError(name, {failure.line, failure.column}, problem(failure));
    printRemedy(remedyText);
}

} // namespace

void reportFailure(const QString &name, const CatalogReadFailure &failure)
{
    reportFailure(name, failure, remedy(failure));
}

bool reportLoad(CatalogFile &file)
{
    const bool isInOtherForm = (file.isLoaded() || lacksScrambledKey(file.failure())) && file.isInOtherForm();
    if (!file.isLoaded()) {
        reportFailure(file.name(), file.failure(), isInOtherForm ? otherForm(file) : remedy(file.failure()));
        return false;
    }
    if (isInOtherForm)
        printWarning(file.name(), {}, otherForm(file));
    // A file with another root element loads well, as an empty catalog.
    if (file.catalog().getCatalogItems().size() == 1)
        printWarning(file.name(), {}, QStringLiteral("no codes in this catalog; is its root element OVCAT?"));
    if (file.hasLooseEnds())
        reportLooseEnds(file);
    return true;
}

} // namespace Orvida::Tools
