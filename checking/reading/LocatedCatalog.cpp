#include "checking/reading/LocatedCatalog_p.h"

#include "catalogs/reading/FieldConversion_p.h"

#include <algorithm>
#include <array>

namespace Orvida::Checking {

namespace {

constexpr std::size_t kindCount = std::size_t(Section::PARAMX) + 1;
using FormatTable = std::array<std::array<const CatalogFormat::Field *, tokenCount>, kindCount>;

FormatTable formatTable()
{
    FormatTable table{};
    for (const CatalogFormat::Record &record : CatalogFormat::records()) {
        for (const CatalogFormat::Field &field : record.fields)
            table[std::size_t(record.token)][std::size_t(field.token)] = &field;
    }
    return table;
}

} // namespace

const CatalogFormat::Field &formatOf(Section kind, int token)
{
    static const FormatTable table = formatTable();
    return *table[std::size_t(kind)][std::size_t(token)];
}

const LocatedField *LocatedCatalog::fieldOf(int record, int token) const
{
    if (this->record(record).fieldCount > int(tokenCount)) {
        const auto found = longRecords.find(record);
        const int index = found == longRecords.end() ? -1 : found->second[std::size_t(token)];
        return index < 0 ? nullptr : fields.data() + index;
    }
    const LocatedField *const last = end(record);
    for (const LocatedField *field = begin(record); field != last; ++field) {
        if (field->token == token && !field->isOverruled)
            return field;
    }
    return nullptr;
}

// The first one in the order of the format, which has keys before codes.
Symbol LocatedCatalog::keyOf(int index) const
{
    if (record(index).kind == Section::Unknown)
        return 0;
    for (const CatalogFormat::Field &format : CatalogFormat::record(int(record(index).kind)).fields) {
        const bool isKey = format.keySpace != CatalogFormat::KeySpace::None;
        const LocatedField *field = isKey ? fieldOf(index, format.token) : nullptr;
        if (field && field->value != 0)
            return field->value;
    }
    return 0;
}

QStringView LocatedCatalog::rawText(const LocatedField &field) const
{
    const int index = int(&field - fields.data());
    const auto found =
        std::lower_bound(oddScrambledTexts.begin(), oddScrambledTexts.end(), index,
                         [](const OddScrambledText &odd, int wanted) { return odd.field < wanted; });
    const bool isFound = found != oddScrambledTexts.end() && found->field == index;
    return isFound ? texts.text(found->raw) : QStringView();
}

int LocatedCatalog::toNumber(Symbol symbol) const
{
    const QString text = texts.string(symbol);
    return Catalogs::toInt(QStringRef(&text));
}

bool LocatedCatalog::isTrue(Symbol symbol) const
{
    const QString text = texts.string(symbol);
    return Catalogs::isTrue(QStringRef(&text));
}

const LocatedField *LocatedCatalog::begin(int index) const
{
    return fields.data() + record(index).firstField;
}

const LocatedField *LocatedCatalog::end(int index) const
{
    return begin(index) + record(index).fieldCount;
}

const CatalogFormat::Field &LocatedCatalog::format(int index, const LocatedField &field) const
{
    return formatOf(record(index).kind, field.token);
}

} // namespace Orvida::Checking
