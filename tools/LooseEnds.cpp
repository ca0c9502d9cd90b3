#include "tools/LooseEnds.h"

#include "tools/FieldOrigins.h"
#include "tools/Messages.h"
#include "tools/NearNames.h"

#include <QStringList>

namespace Orvida::Tools {

namespace {

using Catalogs::CatalogFormat;
using Record = RecordPositions::Record;
using Field = RecordPositions::Field;

// Comparing many unknown keys with many known ones takes long.
constexpr int mostComparisons = 1 << 20;

bool namesItem(const CatalogFormat::Field &field)
{
    const CatalogFormat::Field *named = CatalogFormat::field(field.names);
    return named && named->keySpace == CatalogFormat::KeySpace::Item;
}

class Report
{
public:
    explicit Report(CatalogFile &file) : m_file(file), m_ids(file.catalog().getCatalogItems().keys()) {}

    // Warns of `record` when the item that it hangs at, which it names `key`, is not in the catalog.
    void check(const Record &record, const QString &key, const char *consequence)
    {
        if (m_file.catalog().getCatalogItems().contains(key))
            return;
        const Field *reference = nullptr;
        for (const Field &field : record.fields) {
            if (namesItem(*field.format) && field.value == key)
                reference = &field;
        }
        if (reference)
            warn(record, *reference, consequence);
    }

private:
    void warn(const Record &record, const Field &reference, const char *consequence)
    {
        QString text = QStringLiteral("%1 %2 %3: %4 %5 names no item of the catalog")
                           .arg(record.format->name, record.key, QLatin1String(consequence),
                                reference.format->name, quoted(reference.value));
        m_comparisons += m_ids.size();
        const QStringList near =
            m_comparisons < mostComparisons ? nearNames(reference.value, m_ids) : QStringList();
        if (!near.isEmpty())
            text += QStringLiteral("; did you mean %1?").arg(near.join(QStringLiteral(", ")));
        printWarning(m_file.name(), reference.position, text);
    }

    CatalogFile &m_file;
    const QStringList m_ids;
    qint64 m_comparisons = 0;
};

} // namespace

void reportLooseEnds(CatalogFile &file)
{
    using KeySpace = CatalogFormat::KeySpace;
    Report report(file);
    for (const Record &record : file.positions().records()) {
        if (!file.positions().counts(record))
            continue;
        if (record.keySpace == KeySpace::ParameterExtension)
            report.check(record, itemKeyOf(file.records().m_parameterExtensions.value(record.key)),
                         "makes no field");
        if (record.keySpace == KeySpace::Item)
            report.check(record, file.catalog().getCatalogItems().value(record.key)->parentId(),
                         "hangs nowhere");
    }
}

} // namespace Orvida::Tools
