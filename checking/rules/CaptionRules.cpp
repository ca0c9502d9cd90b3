#include "checking/rules/CaptionRules_p.h"

#include "checking/reading/Characters_p.h"
#include "checking/rules/Check_p.h"
#include "checking/rules/FieldTypes_p.h"

#include <set>
#include <unordered_map>
#include <vector>

namespace Orvida::Checking {

namespace {

// Whether a field is missing or only white space, unless it holds a scrambled text that is reported as wrong.
bool isMissing(const Check &check, int record, int token)
{
    const LocatedField *field = check.catalog.fieldOf(record, token);
    return !field || (isBlank(check.text(field->value)) && check.catalog.rawText(*field).isEmpty());
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

void reportMissingCaption(Check &check, int record, int token)
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
    if (check.clearTexts)
        return;
    for (const CatalogLinks::Item &item : check.links.items())
        reportMissingCaption(check, item.record, tokensOf(check, item).caption);
    std::set<int> used;
    for (const CatalogLinks::InputField &field : check.links.inputFields()) {
        if (field.parameter >= 0 && used.insert(field.parameter).second)
            reportMissingCaption(check, field.parameter, int(ParameterToken::PARAM_Caption));
    }
}

namespace {

bool isLineBreak(QChar character)
{
    return character == QLatin1Char('\n') || character == QLatin1Char('\r')
           || character == QChar::LineSeparator || character == QChar::ParagraphSeparator;
}

} // namespace

void findPaddedCaptions(Check &check)
{
    const auto isWanted = [](QStringView text) {
        const QStringView trimmed = text.trimmed();
        return !trimmed.isEmpty()
               && (trimmed.size() < text.size() || std::any_of(text.begin(), text.end(), isLineBreak));
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
            if (equal.size() < 2 || isBlank(check.text(Symbol(equal.key()))))
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

namespace {

bool isVirtualCode(const Check &check, const CatalogLinks::Item &item)
{
    return kindOf(check, item) == Section::BASECODE
           && check.catalog.flag(item.record, BaseCodeToken::BC_IsVirtual);
}

} // namespace

void findMissingCodes(Check &check)
{
    if (check.clearTexts)
        return;
    for (const CatalogLinks::Item &item : check.links.items()) {
        const Section kind = kindOf(check, item);
        if (kind == Section::CLASS || isVirtualCode(check, item)
            || !isMissing(check, item.record, tokensOf(check, item).code))
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

// Only of codes without codes below: the others are mostly refined before they are recorded.
void findMissingObservationTexts(Check &check)
{
    for (int index = 0; index < int(check.links.items().size()); ++index) {
        const CatalogLinks::Item &item = check.links.item(index);
        const ItemTokens tokens = tokensOf(check, item);
        if (kindOf(check, item) == Section::CLASS || isVirtualCode(check, item)
            || !check.links.childrenOf(index).isEmpty() || !isMissing(check, item.record, tokens.obsText))
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

// Calls `visit` with each placeholder in a text: an at sign that does not follow a letter or digit, with
// letters, digits or _.
template <typename Visit>
void forEachPlaceholder(QStringView text, Visit visit)
{
    for (int start = 0; start < text.size(); ++start) {
        if (text.at(start) != QLatin1Char('@') || (start > 0 && text.at(start - 1).isLetterOrNumber()))
            continue;
        int end = start + 1;
        while (end < text.size() && isWordCharacter(text.at(end)))
            ++end;
        if (end > start + 1)
            visit(text.mid(start, end - start));
    }
}

} // namespace

std::vector<QStringView> placeholdersIn(QStringView text)
{
    std::vector<QStringView> placeholders;
    forEachPlaceholder(text, [&](QStringView placeholder) { placeholders.push_back(placeholder); });
    return placeholders;
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
          m_parameters(std::size_t(check.catalog.texts.size()), -1),
          m_counts(m_parameters.size()),
          m_longerCounts(m_parameters.size()),
          m_isAnywhere(m_parameters.size()),
          m_isIncomplete(check.links.items().size())
    {
        markPlaceholders();
        markStrayFields();
        markLostFields();
    }

    void walk();

private:
    void markPlaceholders();
    void markStrayFields();
    void markLostFields();
    void enter(int index, int sign);
    void reportUnknown(const CatalogLinks::Item &item);
    void report(const CatalogLinks::Item &item, QStringView placeholder);
    QString hint(QStringView placeholder) const;
    const std::vector<Symbol> &beginningsOf(Symbol placeholder);
    std::vector<int> fieldsBeginningOthers(int index) const;
    void reportBeginnings(int index);
    void reportBeginning(int index, int field, Symbol beginning);

    Check &m_check;
    std::vector<int> m_open;
    /// By text: the first parameter of which it is the placeholder, or -1; how many fields on the way have
    /// it; and how many have a placeholder that begins with it.
    std::vector<int> m_parameters;
    std::vector<int> m_counts;
    std::vector<int> m_longerCounts;
    /// By text: whether it is the placeholder of a field that may belong to any code.
    std::vector<bool> m_isAnywhere;
    std::unordered_map<Symbol, std::vector<Symbol>> m_beginnings;
    /// Of items: whether a field of theirs is lost, which may have any placeholder.
    std::vector<bool> m_isIncomplete;
    int m_incompleteCount = 0;
};

void PlaceholderPath::markPlaceholders()
{
    m_check.forEachRecord(Section::PARAM, [this](int record) {
        const Symbol placeholder = m_check.catalog.value(record, ParameterToken::PARAM_Placeholder);
        int &parameter = m_parameters[std::size_t(placeholder)];
        if (placeholder != 0 && parameter < 0 && m_check.links.counts(record))
            parameter = record;
    });
}

// Fields without a known code.
void PlaceholderPath::markStrayFields()
{
    for (const CatalogLinks::InputField &field : m_check.links.inputFields()) {
        if (field.item < 0)
            m_isAnywhere[std::size_t(placeholderOf(m_check, field))] = true;
    }
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
        const std::vector<int> shorter = fieldsBeginningOthers(index);
        enter(index, 1);
        m_open.push_back(index);
        if (m_incompleteCount > 0)
            continue;
        reportUnknown(item);
        for (const int field : shorter)
            reportBeginning(index, field, placeholderOf(m_check, m_check.links.inputField(field)));
        reportBeginnings(index);
    }
}

void PlaceholderPath::enter(int index, int sign)
{
    bool isIncomplete = m_isIncomplete[std::size_t(index)];
    for (const int field : m_check.links.inputFieldsOf(index)) {
        const Symbol placeholder = placeholderOf(m_check, m_check.links.inputField(field));
        isIncomplete = isIncomplete || !isComplete(m_check, m_check.links.inputField(field));
        m_counts[std::size_t(placeholder)] += sign;
        for (const Symbol beginning : beginningsOf(placeholder))
            m_longerCounts[std::size_t(beginning)] += sign;
    }
    m_incompleteCount += isIncomplete ? sign : 0;
}

// A placeholder that occurs several times in a text is reported once.
void PlaceholderPath::reportUnknown(const CatalogLinks::Item &item)
{
    constexpr std::size_t mostRemembered = 1000;
    const int token = tokensOf(m_check, item).obsText;
    const LocatedField *text = token == 0 ? nullptr : m_check.catalog.fieldOf(item.record, token);
    if (!text)
        return;
    std::set<QStringView> reported;
    forEachPlaceholder(m_check.text(text->value), [&](QStringView placeholder) {
        const Symbol symbol = m_check.catalog.texts.find(placeholder);
        const bool isKnown =
            symbol != 0 && (m_counts[std::size_t(symbol)] > 0 || m_isAnywhere[std::size_t(symbol)]);
        if (isKnown || reported.count(placeholder) > 0)
            return;
        if (reported.size() < mostRemembered)
            reported.insert(placeholder);
        report(item, placeholder);
    });
}

void PlaceholderPath::report(const CatalogLinks::Item &item, QStringView placeholder)
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
        for (const int field : m_check.links.inputFieldsOf(index)) {
            if (m_check.mayCompare())
                near.offer(m_check.text(placeholderOf(m_check, m_check.links.inputField(field))));
        }
    }
    if (near.nearest().compare(placeholder.toString(), Qt::CaseInsensitive) == 0)
        return didYouMean(near.nearest()) + QStringLiteral(" placeholders are compared exactly");
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
        if (m_parameters[std::size_t(beginning)] >= 0)
            beginnings.push_back(beginning);
    }
    return beginnings;
}

// Fields of the item, not entered yet, whose placeholders begin one of a field above.
std::vector<int> PlaceholderPath::fieldsBeginningOthers(int index) const
{
    std::vector<int> result;
    for (const int field : m_check.links.inputFieldsOf(index)) {
        const Symbol placeholder = placeholderOf(m_check, m_check.links.inputField(field));
        if (m_longerCounts[std::size_t(placeholder)] > 0)
            result.push_back(field);
    }
    return result;
}

// Those of the item, or above it, that begin one of its own.
void PlaceholderPath::reportBeginnings(int index)
{
    for (const int field : m_check.links.inputFieldsOf(index)) {
        for (const Symbol beginning : beginningsOf(placeholderOf(m_check, m_check.links.inputField(field)))) {
            if (m_counts[std::size_t(beginning)] > 0)
                reportBeginning(index, field, beginning);
        }
    }
}

// Hosts that replace placeholders one by one find the shorter one inside the longer.
void PlaceholderPath::reportBeginning(int index, int field, Symbol beginning)
{
    const int parameter = m_parameters[std::size_t(beginning)];
    const Place place = placeOf(m_check.catalog, parameter, ParameterToken::PARAM_Placeholder);
    CatalogFinding *finding = m_check.add(Fault(Rule::PlaceholderBeginsAnother, place).about(beginning));
    if (!finding)
        return;
    finding->message =
        QStringLiteral("%1 begins another placeholder of %2")
            .arg(m_check.shownText(beginning), m_check.keyOf(m_check.links.item(index).record));
    FindingReport::relate(*finding, placeOf(m_check.catalog, m_check.links.inputField(field).record),
                          QStringLiteral("the field"));
}

} // namespace

void findUnknownPlaceholders(Check &check)
{
    PlaceholderPath(check).walk();
}

// White space around a placeholder is reported as padded-key.
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
        for (const int field : fields) {
            if (isComplete(check, check.links.inputField(field)))
                byPlaceholder.add(placeholderOf(check, check.links.inputField(field)), field);
        }
        byPlaceholder.sort();
        byPlaceholder.forEach([&](const Groups::Members &equal) {
            if (equal.size() < 2 || equal.key() == 0)
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
        forEachPlaceholder(check.text(text->value), [&](QStringView placeholder) {
            const Symbol symbol = check.catalog.texts.find(placeholder);
            if (symbol != 0)
                places.add(symbol, item.enter);
        });
    }
    places.sort();
    for (const CatalogLinks::InputField &field : check.links.inputFields()) {
        const Symbol placeholder = placeholderOf(check, field);
        if (placeholder == 0 || !isComplete(check, field) || !check.links.isInTree(field.item))
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
