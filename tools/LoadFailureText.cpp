#include "tools/LoadFailureText.h"

#include "tools/OutputStyle.h"

#include <QStringList>

namespace Orvida::Tools {

namespace {

using Catalogs::CatalogReadFailure;

QString position(const CatalogReadFailure &failure)
{
    if (failure.line == 0)
        return QString();
    return QStringLiteral("%1:%2:").arg(failure.line).arg(failure.column);
}

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

// These two keys are scrambled in the file: a text in the clear decodes to something else, often to nothing.
bool isScrambledKey(const QString &field)
{
    return field == QLatin1String("COL_Column_ID") || field == QLatin1String("LC_Class_ID");
}

QString remedy(const CatalogReadFailure &failure)
{
    switch (failure.reason) {
    case CatalogReadFailure::FileNotRead:
        return QStringLiteral("check the name of the file and the right to read it.");
    case CatalogReadFailure::NotWellFormed:
        return QStringLiteral("mend the XML there; a catalog loads as a whole or not at all.");
    case CatalogReadFailure::RecordRefused:
        for (const QString &field : failure.missingFields) {
            if (isScrambledKey(field))
                return QStringLiteral(
                           "give the record a %1 in scrambled form; a text in the clear may read as "
                           "empty there.")
                    .arg(field);
        }
        return QStringLiteral("give the record a %1 that is not empty, or remove the record; one such record "
                              "keeps the whole catalog from loading.")
            .arg(failure.missingFields.value(0));
    case CatalogReadFailure::None: break;
    }
    return QStringLiteral("was it being written? try again.");
}

} // namespace

QString loadFailureText(const QString &name, const CatalogReadFailure &failure)
{
    return OutputStyle::singleLine(name + QLatin1Char(':') + position(failure) + QStringLiteral(" error: ")
                                   + problem(failure))
           + QStringLiteral("\n  to mend it: ") + remedy(failure) + QLatin1Char('\n');
}

} // namespace Orvida::Tools
