#include "tools/RecordPositions.h"

#include "catalogs/reading/ScrambledText.h"
#include "shared/DataConverter.h"

#include <QFile>
#include <QXmlStreamReader>

#include <algorithm>
#include <utility>

namespace Orvida::Tools {

namespace {

using Format = Catalogs::CatalogFormat;

// Not QXmlStreamReader::atEnd(), which stays false for ever when reading fails in the middle of a file.
bool isLast(QXmlStreamReader::TokenType token)
{
    return token == QXmlStreamReader::Invalid || token == QXmlStreamReader::EndDocument;
}

bool isRoot(const QStringRef &name)
{
    const auto names = Format::rootNames();
    return std::any_of(names.begin(), names.end(), [&name](QLatin1String root) { return name == root; });
}

const Format::Field *fieldOf(const Format::Record &record, const QStringRef &name)
{
    const auto found = std::find_if(record.fields.begin(), record.fields.end(),
                                    [&name](const Format::Field &field) { return name == field.name; });
    return found == record.fields.end() ? nullptr : found;
}

FilePosition positionOf(const QXmlStreamReader &reader)
{
    return {reader.lineNumber(), reader.columnNumber() + 1};
}

// A column without a known type is dropped by the load.
bool isDropped(const RecordPositions::Record &record)
{
    const auto dataType = record.field(QLatin1String("COL_DataType"));
    return record.format->name == QLatin1String("COL")
           && (!dataType
               || Shared::DataConverter::stringToDataType(QStringRef(&dataType->value))
                      == Shared::InputField::Undefined);
}

} // namespace

const RecordPositions::Field *RecordPositions::Record::field(QLatin1String name) const
{
    const Field *found = nullptr;
    for (const Field &candidate : fields) {
        if (candidate.format->name == name && (!found || candidate.hasText || !found->hasText))
            found = &candidate;
    }
    return found;
}

RecordPositions::RecordPositions(const QString &path, TextForm form) : m_form(form)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return;
    QXmlStreamReader reader(&file);
    readDocument(reader);
}

const RecordPositions::Record *RecordPositions::find(Format::KeySpace keySpace, const QString &key,
                                                     const QString &profile) const
{
    const auto found = m_byKey.constFind({static_cast<int>(keySpace), {key, profile}});
    return found == m_byKey.constEnd() ? nullptr : &m_records[*found];
}

void RecordPositions::readDocument(QXmlStreamReader &reader)
{
    for (auto token = reader.readNext(); !isLast(token); token = reader.readNext()) {
        if (token != QXmlStreamReader::StartElement || isRoot(reader.name()))
            continue;
        if (const Format::Record *format = Format::record(reader.name()))
            add(readRecord(reader, *format));
        else
            reader.skipCurrentElement();
    }
}

RecordPositions::Record RecordPositions::readRecord(QXmlStreamReader &reader,
                                                    const Format::Record &format) const
{
    Record record{&format, positionOf(reader), {}, Format::KeySpace::None, {}, {}};
    bool isTextMissing = false;
    int depth = 1;
    for (auto token = reader.readNext(); !isLast(token); token = reader.readNext()) {
        if (token == QXmlStreamReader::StartElement) {
            ++depth;
            const Format::Field *field = fieldOf(format, reader.name());
            isTextMissing = field;
            if (field)
                record.fields.append({field, positionOf(reader), QString(), false});
        } else if (token == QXmlStreamReader::Characters && isTextMissing) {
            Field &field = record.fields.last();
            const bool isScrambled = field.format->isScrambled() && m_form == TextForm::Scrambled;
            // A copy: a string made of the whole text would keep the reader's buffer.
            field.value = isScrambled ? Catalogs::ScrambledText::decode(reader.text())
                                      : QString(reader.text().constData(), reader.text().size());
            field.hasText = true;
            isTextMissing = false;
        } else if (token == QXmlStreamReader::EndElement) {
            isTextMissing = false;
            if (--depth == 0)
                break;
        }
    }
    return record;
}

// Of columns with one id and profile the first counts, of other records with one key the last.
void RecordPositions::add(Record record)
{
    for (const Format::Field *required : record.format->requiredFields()) {
        const Field *field = record.field(required->name);
        const bool isKey = required->keySpace != Format::KeySpace::None;
        if (isKey && field)
            record.keySpace = required->keySpace;
        (isKey ? record.key : record.profile) = field ? field->value : QString();
    }
    const Key place{static_cast<int>(record.keySpace), {record.key, record.profile}};
    const bool isLaterColumn = record.keySpace == Format::KeySpace::Column && m_byKey.contains(place);
    if (record.keySpace != Format::KeySpace::None && !isDropped(record) && !isLaterColumn)
        m_byKey.insert(place, m_records.size());
    m_records.push_back(std::move(record));
}

} // namespace Orvida::Tools
