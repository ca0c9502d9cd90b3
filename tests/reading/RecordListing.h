// For tests of the reader: records written from short descriptions, and what was read as lines of text.
#pragma once

#include "catalogs/reading/CatalogXMLParser.h"
#include "support/TestSupport.h"

#include <QVariant>

namespace Orvida::Tests {

using namespace Orvida::Catalogs;

using Items = QHash<QString, QSharedPointer<CatalogItem>>;

// The record as " name=value" of those `names` whose value is not empty, 0 or false. The names come as
// "r.pk, r.format, ...".
inline QString line(const char *names, const QVariantList &values)
{
    const QStringList nameList = QString::fromLatin1(names).remove(QStringLiteral("r.")).split(QLatin1Char(','));
    QString line;
    for (int i = 0; i < values.size(); ++i) {
        const QString value = values.at(i).toString();
        if (!value.isEmpty() && value != QLatin1String("0") && value != QLatin1String("false"))
            line += QLatin1Char(' ') + nameList.at(i).trimmed() + QLatin1Char('=') + value;
    }
    return line;
}

#define ORVIDA_LINE(Record, ...)                                                                             \
    inline QString lineOf(const Record &r) { return line(#__VA_ARGS__, {__VA_ARGS__}); }
