// Where in its file each record of a catalog is.
#pragma once

#include "catalogs/format/CatalogFormat.h"
#include "tools/Messages.h"
#include "tools/TextForm.h"

#include <QHash>
#include <QPair>
#include <QString>
#include <QVector>

#include <vector>

class QXmlStreamReader;

namespace Orvida::Tools {

/// Reads a catalog file only for the positions of its records and fields, which a load does not keep. Of
/// several records with one key it finds the one that counts.
class RecordPositions
{
public:
    using Format = Catalogs::CatalogFormat;

    /// A field that is given, with the position after its start tag.
    struct Field
    {
        const Format::Field *format;
        FilePosition position;
        QString value; ///< As a load reads a text; a scrambled one in the clear.
        bool hasText;  ///< An empty element has none, and leaves what an earlier one gave.
    };

    /// A record, with the position after its start tag.
    struct Record
    {
        const Format::Record *format;
        FilePosition position;
        QVector<Field> fields;
        /// What it is found by; no key space when it has no key.
        Format::KeySpace keySpace = Format::KeySpace::None;
        QString key;
        QString profile;

        /// The field with this name whose value a load takes: the last one with a text, else the last one;
        /// null when it is not given.
        const Field *field(QLatin1String name) const;
    };

    /// Reads the file `path`, whose scrambled fields are in `form`, as far as it is well-formed.
    RecordPositions(const QString &path, TextForm form);

    /// All records in file order, those that do not count too.
    const std::vector<Record> &records() const { return m_records; }

    /// The record whose key is `key`; null when there is none. Columns and list classes are also
    /// distinguished by `profile`.
    const Record *find(Format::KeySpace keySpace, const QString &key, const QString &profile = {}) const;

private:
    using Key = QPair<int, QPair<QString, QString>>;

    void readDocument(QXmlStreamReader &reader);
    Record readRecord(QXmlStreamReader &reader, const Format::Record &format) const;
    Field readField(const QXmlStreamReader &reader, const Format::Field &format) const;
    void add(Record record);

    const TextForm m_form;
    std::vector<Record> m_records;
    QHash<Key, std::size_t> m_byKey;
};

} // namespace Orvida::Tools
