#include "checking/rules/CaptionRules_p.h"

#include "checking/rules/Check_p.h"

#include <set>
#include <unordered_map>
#include <vector>

namespace Orvida::Checking {

namespace {

bool isBlank(const Check &check, Symbol text)
{
    return check.text(text).trimmed().isEmpty();
}

// Whether a field is missing or blank; not so, when it holds a scrambled text that is told of as wrong.
bool isMissing(const Check &check, int record, int token)
{
    const LocatedField *field = check.catalog.fieldOf(record, token);
    return !field || (isBlank(check, field->value) && check.catalog.rawText(*field).isEmpty());
}

Section kindOf(const Check &check, const CatalogLinks::Item &item)
{
    return check.catalog.record(item.record).kind;
}

ItemTokens tokensOf(const Check &check, const CatalogLinks::Item &item)
{
    return itemTokens(kindOf(check, item));
}

Symbol captionOf(const Check &check, const CatalogLinks::Item &item)
{
    return check.catalog.value(item.record, tokensOf(check, item).caption);
}

void tellMissingCaption(Check &check, int record, int token)
{
    if (!isMissing(check, record, token))
        return;
    const Place place = placeOf(check.catalog, record, token);
    if (CatalogFinding *finding = check.add(Fault(Rule::MissingCaption, place))) {
        finding->message = QStringLiteral("%1 has no caption").arg(check.keyOf(record));
        finding->hint = QStringLiteral("give it %1").arg(place.field);
    }
}

} // namespace

void findMissingCaptions(Check &check)
{
    for (const CatalogLinks::Item &item : check.links.items())
        tellMissingCaption(check, item.record, tokensOf(check, item).caption);
    std::set<int> used;
    for (const CatalogLinks::InputField &field : check.links.inputFields()) {
        if (field.parameter >= 0 && used.insert(field.parameter).second)
            tellMissingCaption(check, field.parameter, int(ParameterToken::PARAM_Caption));
    }
}

void findPaddedCaptions(Check &check)
{
    const auto isWanted = [](QStringView text) {
        const QStringView trimmed = text.trimmed();
        return !trimmed.isEmpty()
               && (trimmed.size() < text.size()
                   || std::find(text.begin(), text.end(), QLatin1Char('\n')) != text.end());
    };
    check.forEachValue(isWanted, [&](int record, const LocatedField &field) {
        const QLatin1String name = check.catalog.format(record, field).name;
        const bool isCaption =
            name.endsWith(QLatin1String("_Caption"))
            || (name.endsWith(QLatin1String("_Item")) && check.catalog.format(record, field).isScrambled());
        if (!isCaption || field.isOverruled || !check.links.counts(record))
            return;
        if (CatalogFinding *finding =
                check.add(Fault(Rule::PaddedCaption, placeOf(check.catalog, record, field))))
            finding->message = QStringLiteral("%1 has white space at its ends, or a line break: %2")
                                   .arg(name, check.quotedText(field.value));
    });
}

void findEqualCaptions(Check &check)
{
    check.links.children().forEach([&](const Groups::Members &children) {
        if (!check.links.isInTree(int(children.key())))
            return;
        Groups byCaption;
        for (const int child : children)
            byCaption.add(captionOf(check, check.links.item(child)), child);
        byCaption.sort();
        byCaption.forEach([&](const Groups::Members &equal) {
            if (equal.size() < 2 || isBlank(check, Symbol(equal.key())))
                return;
            const int first = check.links.item(equal[0]).record;
            const int second = check.links.item(equal[1]).record;
            CatalogFinding *finding = check.add(Fault(Rule::EqualCaptions, placeOf(check.catalog, second)));
            if (!finding)
                return;
            finding->count = equal.size() - 1;
            finding->message =
                QStringLiteral("%1 and %2 have the same parent and the same caption %3")
                    .arg(check.keyOf(first), check.keyOf(second), check.quotedText(Symbol(equal.key())));
            FindingReport::relate(*finding, placeOf(check.catalog, first), QStringLiteral("the other one"));
        });
    });
}

void findMissingCodes(Check &check)
{
    for (const CatalogLinks::Item &item : check.links.items()) {
        const Section kind = kindOf(check, item);
        const bool isVirtual =
            kind == Section::BASECODE && check.catalog.flag(item.record, BaseCodeToken::BC_IsVirtual);
        if (kind == Section::CLASS || isVirtual || !isMissing(check, item.record, tokensOf(check, item).code))
            continue;
        CatalogFinding *finding =
            check.add(Fault(Rule::MissingCode, placeOf(check.catalog, item.record))
                          .as(kind == Section::BASECODE ? CatalogSeverity::Warning : CatalogSeverity::Note));
        if (!finding)
            continue;
        finding->message =
            QStringLiteral("%1 has no code: it cannot be recorded").arg(check.keyOf(item.record));
        finding->hint = QStringLiteral("give it %1").arg(formatOf(kind, tokensOf(check, item).code).name);
        if (kind == Section::BASECODE)
            finding->hint += QStringLiteral(", or BC_IsVirtual true");
    }
}

// Only of codes that are the last ones of their branch: the others are mostly refined before they are
// recorded.
void findMissingObservationTexts(Check &check)
{
    for (int index = 0; index < int(check.links.items().size()); ++index) {
        const CatalogLinks::Item &item = check.links.item(index);
        const ItemTokens tokens = tokensOf(check, item);
        if (kindOf(check, item) == Section::CLASS || !check.links.childrenOf(index).isEmpty()
            || !isMissing(check, item.record, tokens.obsText) || isMissing(check, item.record, tokens.code))
            continue;
        CatalogFinding *finding =
            check.add(Fault(Rule::MissingObservationText, placeOf(check.catalog, item.record)));
        if (finding) {
            finding->message = QStringLiteral("%1 has no observation text").arg(check.keyOf(item.record));
            finding->hint =
                QStringLiteral("give it %1").arg(formatOf(kindOf(check, item), tokens.obsText).name);
        }
    }
}

namespace {

bool isWordCharacter(QChar character)
{
    return character.isLetterOrNumber() || character == QLatin1Char('_');
}

} // namespace

std::vector<QStringView> placeholdersIn(QStringView text)
{
    std::vector<QStringView> result;
    for (int start = 0; start < text.size(); ++start) {
        if (text.at(start) != QLatin1Char('@') || (start > 0 && text.at(start - 1).isLetterOrNumber()))
            continue;
        int end = start + 1;
        while (end < text.size() && isWordCharacter(text.at(end)))
            ++end;
        if (end > start + 1)
            result.push_back(text.mid(start, end - start));
    }
    return result;
}

namespace {

bool isPlaceholder(QStringView text)
{
    return text.size() > 1 && text.at(0) == QLatin1Char('@')
           && std::all_of(text.begin() + 1, text.end(), isWordCharacter);
}

// The placeholder of an input field; 0 when it has none, or no parameter.
Symbol placeholderOf(const Check &check, const CatalogLinks::InputField &field)
{
    return field.parameter < 0 ? 0 : check.catalog.value(field.parameter, ParameterToken::PARAM_Placeholder);
}

// What observation texts may refer to, on the way from the root of the tree down to one item.
class PlaceholderPath
{
public:
    explicit PlaceholderPath(Check &check)
        : m_check(check),
          m_isPlaceholder(std::size_t(check.catalog.texts.size())),
          m_counts(m_isPlaceholder.size()),
          m_longerCounts(m_isPlaceholder.size()),
          m_isIncomplete(check.links.items().size())
    {
        markPlaceholders();
        markLostFields();
    }

    void walk();

private:
    void markPlaceholders();
    void markLostFields();
    void enter(int index, int sign);
    void tellUnknown(const CatalogLinks::Item &item);
    void tell(const CatalogLinks::Item &item, QStringView placeholder);
    QString hint(QStringView placeholder) const;
    const std::vector<Symbol> &beginningsOf(Symbol placeholder);
    void tellBeginnings(int index);
    void tellBeginning(int index, int parameter, Symbol beginning);

    Check &m_check;
    std::vector<int> m_open;
    /// By text: whether it is a placeholder, how many fields on the way have it, and how many have a
    /// placeholder that begins with it.
    std::vector<bool> m_isPlaceholder;
    std::vector<int> m_counts;
    std::vector<int> m_longerCounts;
    std::unordered_map<Symbol, std::vector<Symbol>> m_beginnings;
    /// Of items: whether a field of theirs is lost, which may have any placeholder.
    std::vector<bool> m_isIncomplete;
    int m_incompleteCount = 0;
};

void PlaceholderPath::markPlaceholders()
{
    m_check.forEachRecord(Section::PARAM, [this](int record) {
        const Symbol placeholder = m_check.catalog.value(record, ParameterToken::PARAM_Placeholder);
        m_isPlaceholder[std::size_t(placeholder)] = placeholder != 0;
    });
}

void PlaceholderPath::markLostFields()
{
    for (int record = 0; record < m_check.catalog.recordCount(); ++record) {
        const LocatedRecord &located = m_check.catalog.record(record);
        if (located.kind != Section::PARAMX || !located.isLost())
            continue;
        for (const auto token :
             {ParameterExtensionToken::PX_BaseCode_FK, ParameterExtensionToken::PX_CharExt_FK}) {
            const Symbol key = m_check.catalog.value(record, token);
            const int item = m_check.links.itemWith(key);
            if (key != 0 && item >= 0)
                m_isIncomplete[std::size_t(item)] = true;
        }
    }
}

// From the top down; on the way up, what was counted is taken away.
void PlaceholderPath::walk()
{
    for (const int index : m_check.links.treeOrder()) {
        const CatalogLinks::Item &item = m_check.links.item(index);
        while (!m_open.empty() && m_check.links.item(m_open.back()).leave <= item.enter) {
            enter(m_open.back(), -1);
            m_open.pop_back();
        }
        enter(index, 1);
        m_open.push_back(index);
        if (m_incompleteCount == 0)
            tellUnknown(item);
        tellBeginnings(index);
    }
}

void PlaceholderPath::enter(int index, int sign)
{
    bool isIncomplete = m_isIncomplete[std::size_t(index)];
    for (const int field : m_check.links.inputFieldsOf(index)) {
        const Symbol placeholder = placeholderOf(m_check, m_check.links.inputField(field));
        isIncomplete = isIncomplete || m_check.links.inputField(field).parameter < 0;
        m_counts[std::size_t(placeholder)] += sign;
        for (const Symbol beginning : beginningsOf(placeholder))
            m_longerCounts[std::size_t(beginning)] += sign;
    }
    m_incompleteCount += isIncomplete ? sign : 0;
}

void PlaceholderPath::tellUnknown(const CatalogLinks::Item &item)
{
    const int token = tokensOf(m_check, item).obsText;
    const LocatedField *text = token == 0 ? nullptr : m_check.catalog.fieldOf(item.record, token);
    if (!text)
        return;
    for (const QStringView placeholder : placeholdersIn(m_check.text(text->value))) {
        const Symbol symbol = m_check.catalog.texts.find(placeholder);
        if (symbol == 0 || m_counts[std::size_t(symbol)] == 0)
            tell(item, placeholder);
    }
}

void PlaceholderPath::tell(const CatalogLinks::Item &item, QStringView placeholder)
{
    const Place place = placeOf(m_check.catalog, item.record, tokensOf(m_check, item).obsText);
    CatalogFinding *finding = m_check.add(Fault(Rule::UnknownPlaceholder, place));
    if (!finding)
        return;
    finding->message = QStringLiteral("%1 stands for no field of %2 or of a code above it")
                           .arg(shown(placeholder), m_check.keyOf(item.record));
    finding->hint = hint(placeholder);
}

QString PlaceholderPath::hint(QStringView placeholder) const
{
    NearName near(placeholder);
    for (const int index : m_open) {
        for (const int field : m_check.links.inputFieldsOf(index))
            near.offer(m_check.text(placeholderOf(m_check, m_check.links.inputField(field))));
    }
    if (near.nearest().compare(placeholder.toString(), Qt::CaseInsensitive) == 0)
        return didYouMean(near.nearest()) + QStringLiteral(" Placeholders are compared exactly");
    return didYouMean(near.nearest());
}

// Those of the file that a placeholder begins with.
const std::vector<Symbol> &PlaceholderPath::beginningsOf(Symbol placeholder)
{
    constexpr int longest = 30;
    const auto known = m_beginnings.find(placeholder);
    if (known != m_beginnings.end())
        return known->second;
    std::vector<Symbol> &beginnings = m_beginnings[placeholder];
    const QStringView text = m_check.text(placeholder);
    for (int length = 2; length < text.size() && length < longest; ++length) {
        const Symbol beginning = m_check.catalog.texts.find(text.left(length));
        if (m_isPlaceholder[std::size_t(beginning)])
            beginnings.push_back(beginning);
    }
    return beginnings;
}

// Hosts that replace placeholders one by one find the shorter one inside of the longer.
void PlaceholderPath::tellBeginnings(int index)
{
    for (const int number : m_check.links.inputFieldsOf(index)) {
        const CatalogLinks::InputField &field = m_check.links.inputField(number);
        const Symbol placeholder = placeholderOf(m_check, field);
        for (const Symbol beginning : beginningsOf(placeholder)) {
            if (m_counts[std::size_t(beginning)] > 0)
                tellBeginning(index, field.parameter, beginning);
        }
        if (m_longerCounts[std::size_t(placeholder)] > 0)
            tellBeginning(index, field.parameter, placeholder);
    }
}

void PlaceholderPath::tellBeginning(int index, int parameter, Symbol beginning)
{
    const Place place = placeOf(m_check.catalog, parameter, ParameterToken::PARAM_Placeholder);
    CatalogFinding *finding = m_check.add(Fault(Rule::PlaceholderBeginsAnother, place).about(beginning));
    if (finding)
        finding->message =
            QStringLiteral("%1 begins another placeholder of %2")
                .arg(m_check.shownText(beginning), m_check.keyOf(m_check.links.item(index).record));
}

} // namespace

void findUnknownPlaceholders(Check &check)
{
    PlaceholderPath(check).walk();
}

// White space around a placeholder is told of as such.
void findBadPlaceholders(Check &check)
{
    check.forEachRecord(Section::PARAM, [&](int record) {
        const Symbol placeholder = check.catalog.value(record, ParameterToken::PARAM_Placeholder);
        const QStringView text = check.text(placeholder).trimmed();
        if (placeholder == 0 || isPlaceholder(text) || !check.links.counts(record))
            return;
        const Place place = placeOf(check.catalog, record, ParameterToken::PARAM_Placeholder);
        CatalogFinding *finding = check.add(Fault(Rule::BadPlaceholder, place));
        if (!finding)
            return;
        finding->message = QStringLiteral("%1 is no placeholder").arg(check.quotedText(placeholder));
        const QString better = QLatin1Char('@') + text.toString();
        finding->hint = isPlaceholder(better)
                            ? QStringLiteral("write %1").arg(shown(better))
                            : QStringLiteral("a placeholder is @ with letters, digits or _");
    });
}

void findRepeatedPlaceholders(Check &check)
{
    check.links.inputFieldsByItem().forEach([&](const Groups::Members &fields) {
        Groups byPlaceholder;
        for (const int field : fields)
            byPlaceholder.add(placeholderOf(check, check.links.inputField(field)), field);
        byPlaceholder.sort();
        byPlaceholder.forEach([&](const Groups::Members &equal) {
            if (equal.size() < 2 || equal.key() == 0 || fields.key() < 0)
                return;
            const int first = check.links.inputField(equal[0]).record;
            const int second = check.links.inputField(equal[1]).record;
            CatalogFinding *finding =
                check.add(Fault(Rule::RepeatedPlaceholder, placeOf(check.catalog, second)));
            if (!finding)
                return;
            finding->count = equal.size() - 1;
            finding->message =
                QStringLiteral("%1 stands for %2 and for %3")
                    .arg(check.shownText(Symbol(equal.key())), check.keyOf(first), check.keyOf(second));
            FindingReport::relate(*finding, placeOf(check.catalog, first), QStringLiteral("the other field"));
        });
    });
}

// Whether a text of the field's item, or of one below it, has the placeholder: by places in the tree.
void findFieldsWithoutPlaceholder(Check &check)
{
    if (!check.report.isOn(Rule::FieldWithoutPlaceholder))
        return;
    Groups places;
    for (const int index : check.links.treeOrder()) {
        const CatalogLinks::Item &item = check.links.item(index);
        const int token = tokensOf(check, item).obsText;
        const LocatedField *text = token == 0 ? nullptr : check.catalog.fieldOf(item.record, token);
        if (!text)
            continue;
        for (const QStringView placeholder : placeholdersIn(check.text(text->value)))
            places.add(check.catalog.texts.find(placeholder), item.enter);
    }
    places.sort();
    for (const CatalogLinks::InputField &field : check.links.inputFields()) {
        const Symbol placeholder = placeholderOf(check, field);
        if (field.item < 0 || placeholder == 0 || check.links.item(field.item).brokenAt >= 0)
            continue;
        const CatalogLinks::Item &item = check.links.item(field.item);
        if (places.hasBetween(placeholder, item.enter, item.leave))
            continue;
        if (CatalogFinding *finding =
                check.add(Fault(Rule::FieldWithoutPlaceholder, placeOf(check.catalog, field.record))))
            finding->message = QStringLiteral("%1 is in no observation text of %2 or below")
                                   .arg(check.shownText(placeholder), check.keyOf(item.record));
    }
}

} // namespace Orvida::Checking
