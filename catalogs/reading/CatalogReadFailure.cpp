#include "catalogs/reading/CatalogReadFailure.h"

namespace Orvida::Catalogs {

QString CatalogReadFailure::problem() const
{
    switch (reason) {
    case FileNotRead: return QStringLiteral("cannot read the file: ") + detail;
    case NotWellFormed: return QStringLiteral("not well-formed XML: ") + detail;
    case RecordRefused:
        return record + QStringLiteral(" record without ")
               + missingFields.join(QStringLiteral(" and without "));
    case None: break;
    }
    return QString();
}

QString CatalogReadFailure::remedy() const
{
    switch (reason) {
    case FileNotRead: return QStringLiteral("check the name of the file and the right to read it");
    case NotWellFormed:
        return QStringLiteral("correct the XML there; a catalog loads as a whole or not at all");
    case RecordRefused:
        return QStringLiteral("give the record a %1 that is not empty, or remove the record; one such record "
                              "keeps the whole catalog from loading")
            .arg(missingFields.value(0));
    case None: break;
    }
    return QString();
}

QString CatalogReadFailure::text() const
{
    if (reason == None)
        return QString();
    QString what = problem();
    if (line > 0)
        what.prepend(QStringLiteral("Line %1, column %2: ").arg(line).arg(column));
    else
        what.replace(0, 1, what.at(0).toUpper());
    if (what.endsWith(QLatin1Char('.'))) // the system's own words may end so
        what.chop(1);
    return QStringLiteral("%1. To fix it, %2.").arg(what, remedy());
}

} // namespace Orvida::Catalogs
