#include "checking/comparison/FieldComparison_p.h"

#include "checking/findings/Wording_p.h"
#include "checking/rules/FieldTypes_p.h"

#include <QDate>

#include <algorithm>
#include <iterator>
#include <limits>
#include <optional>

namespace Orvida::Checking {

namespace {

using InputField = CatalogLinks::InputField;
using Px = ParameterExtensionToken;
using Set = ProfilePairs::Set;

// Texts of which it only matters whether they are the same.
struct TextProperty
{
    Change change;
    const char *name;
    Px token;
};
constexpr TextProperty fieldTexts[] = {
    {Change::StepChanged, "step", Px::PX_Steps},
    {Change::DefaultChanged, "default", Px::PX_Default},
    {Change::FormatChanged, "input format", Px::PX_InputFmt},
    {Change::DisplayFormatChanged, "display format", Px::PX_DisplayFmt},
};

struct ParameterProperty
{
    Change change;
    const char *name;
    ParameterToken token;
};
constexpr ParameterProperty parameterTexts[] = {
    {Change::PlaceholderChanged, "placeholder", ParameterToken::PARAM_Placeholder},
    {Change::PrefixChanged, "prefix", ParameterToken::PARAM_Prefix},
    {Change::SuffixChanged, "suffix", ParameterToken::PARAM_Suffix},
    {Change::FieldCaptionChanged, "caption", ParameterToken::PARAM_Caption},
};

Type typeOf(const Edition &edition, const InputField &field)
{
    return parameterType(edition.check(), field.parameter);
}

// A limit as a number: a number itself, or the day of a date.
std::optional<double> limitOf(const QString &text)
{
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    if (isNumber && qIsFinite(number))
        return number;
    const QDate date = QDate::fromString(text, Qt::ISODate);
    return date.isValid() ? std::optional<double>(double(date.toJulianDay())) : std::nullopt;
}

enum class Shift { None, Inwards, Outwards };

// Where a limit has moved; `sign` is 1 for the lower one, whose inwards is upwards, and -1 for the upper one.
Shift shiftOf(const QString &before, const QString &after, int sign)
{
    if (before == after)
        return Shift::None;
    if (before.isEmpty() || after.isEmpty())
        return before.isEmpty() ? Shift::Inwards : Shift::Outwards;
    const std::optional<double> oldLimit = limitOf(before);
    const std::optional<double> newLimit = limitOf(after);
    if (!oldLimit || !newLimit)
        return Shift::Inwards;
    const double difference = sign * (*newLimit - *oldLimit);
    return difference > 0 ? Shift::Inwards : difference < 0 ? Shift::Outwards : Shift::None;
}

QString rangeText(const QString &from, const QString &to)
{
    if (from.isEmpty() || to.isEmpty())
        return from.isEmpty() && to.isEmpty() ? QString()
               : from.isEmpty()               ? QStringLiteral("up to ") + to
                                              : QStringLiteral("from ") + from;
    return QStringLiteral("%1 to %2").arg(from, to);
}

Set intersection(const Set &a, const Set &b)
{
    Set result;
    std::set_intersection(a.begin(), a.end(), b.begin(), b.end(), std::back_inserter(result));
    return result;
}

} // namespace

ChangeDraft &addToField(EditionPair &pair, Change change, CatalogChangeClass changeClass, int oldItem,
                        int newItem, const QString &column)
{
    ChangeDraft &draft = pair.addToItem(change, changeClass, oldItem, newItem);
    draft.told.column = column;
    draft.told.subject += QStringLiteral(" · ") + shown(column);
    draft.told.oldPlace = {};
    draft.told.newPlace = {};
    return draft;
}

void FieldComparison::compare()
{
    compareColumn();
    if (m_column.both.empty())
        return;
    compareFlags();
    compareType();
    compareUnit();
    compareRange();
    compareNumbers();
    compareTexts();
    compareLists();
}

ChangeDraft &FieldComparison::add(Change change, CatalogChangeClass changeClass, const Set &profiles)
{
    ChangeDraft &draft = addToField(m_pair, change, changeClass, m_oldItem, m_newItem,
                                    m_pair.newEdition.text(m_after.column).toString());
    draft.profiles = profiles;
    draft.told.oldPlace = m_pair.oldEdition.placeOf(m_before.record);
    draft.told.newPlace = m_pair.newEdition.placeOf(m_after.record);
    return draft;
}

template <typename Token>
void FieldComparison::tell(Change change, CatalogChangeClass changeClass, const char *name, Token token)
{
    ChangeDraft &draft = add(change, changeClass, m_column.both);
    draft.told.oldText = oldText(token);
    draft.told.newText = newText(token);
    draft.told.oldPlace = m_pair.oldEdition.placeOf(recordFor(m_before, token), int(token));
    draft.told.newPlace = m_pair.newEdition.placeOf(recordFor(m_after, token), int(token));
    draft.told.message =
        QLatin1String(name) + QLatin1Char(' ') + fromTo(draft.told.oldText, draft.told.newText);
}

void FieldComparison::tellIn(Change change, const Set &profiles, const QString &message)
{
    if (!profiles.empty())
        add(change, profiles).told.message = message;
}

void FieldComparison::compareColumn()
{
    const bool isSameColumn =
        m_pair.oldEdition.common(m_before.column) == m_pair.newEdition.common(m_after.column);
    if (!m_column.onlyOld.empty()) {
        ChangeDraft &draft = add(Change::FieldRemoved, m_column.onlyOld);
        const QString column = m_pair.oldEdition.text(m_before.column).toString();
        draft.told.subject =
            shown(m_pair.newEdition.nameOf(m_newItem)) + QStringLiteral(" · ") + shown(column);
        draft.told.column = column;
        draft.told.oldText = column;
        draft.told.message = isSameColumn ? QStringLiteral("field removed: the column is gone")
                                          : QStringLiteral("field removed");
    }
    if (!m_column.onlyNew.empty()) {
        const bool isMandatory = m_pair.newEdition.catalog().flag(m_after.record, Px::PX_Mandatory);
        ChangeDraft &draft =
            add(Change::FieldAdded, isMandatory ? CatalogChangeClass::Review : CatalogChangeClass::Addition,
                m_column.onlyNew);
        draft.told.newText = draft.told.column;
        draft.told.message =
            isMandatory ? QStringLiteral("mandatory field added") : QStringLiteral("field added");
        if (isSameColumn)
            draft.told.message += QStringLiteral(": the column is new");
    }
    if (isSameColumn || m_column.both.empty())
        return;
    ChangeDraft &draft = add(Change::FieldColumnChanged, m_column.both);
    draft.told.oldText = m_pair.oldEdition.text(m_before.column).toString();
    draft.told.newText = draft.told.column;
    draft.told.message = QStringLiteral("column ") + fromTo(draft.told.oldText, draft.told.newText);
}

void FieldComparison::compareFlags()
{
    tellIn(Change::BecameHidden, m_column.hidden, QStringLiteral("not shown any more"));
    tellIn(Change::BecameShown, m_column.shown, QStringLiteral("shown now"));
    tellIn(Change::BecameReadOnly, m_column.readOnly, QStringLiteral("read-only now"));
    tellIn(Change::BecameWritable, m_column.writable, QStringLiteral("not read-only any more"));
    const bool was = m_pair.oldEdition.catalog().flag(m_before.record, Px::PX_Mandatory);
    const bool is = m_pair.newEdition.catalog().flag(m_after.record, Px::PX_Mandatory);
    if (was != is)
        tellIn(is ? Change::BecameMandatory : Change::BecameOptional, m_column.both,
               is ? QStringLiteral("mandatory now") : QStringLiteral("not mandatory any more"));
}

void FieldComparison::compareType()
{
    const Type before = typeOf(m_pair.oldEdition, m_before);
    const Type after = typeOf(m_pair.newEdition, m_after);
    if (before == after)
        return;
    const bool isWider = (before == Shared::InputField::Integer && after == Shared::InputField::Decimal)
                         || (after == Shared::InputField::Text && m_after.list == 0);
    tell(isWider ? Change::FieldTypeWidened : Change::FieldTypeChanged, "type",
         ParameterToken::PARAM_DataType);
}

void FieldComparison::compareUnit()
{
    if (isSame(ParameterToken::PARAM_Unit))
        return;
    const bool isNumber =
        isNumeric(typeOf(m_pair.oldEdition, m_before)) || isNumeric(typeOf(m_pair.newEdition, m_after));
    const bool isOther = !oldText(ParameterToken::PARAM_Unit).isEmpty()
                         && !newText(ParameterToken::PARAM_Unit).isEmpty() && isNumber;
    tell(Change::UnitChanged, isOther ? CatalogChangeClass::Breaking : CatalogChangeClass::Review, "unit",
         ParameterToken::PARAM_Unit);
}

void FieldComparison::compareRange()
{
    if (isSame(Px::PX_RangeFrom) && isSame(Px::PX_RangeTo))
        return;
    const Shift lower = shiftOf(oldText(Px::PX_RangeFrom), newText(Px::PX_RangeFrom), 1);
    const Shift upper = shiftOf(oldText(Px::PX_RangeTo), newText(Px::PX_RangeTo), -1);
    if (lower == Shift::None && upper == Shift::None)
        return;
    const bool isNarrower = lower == Shift::Inwards || upper == Shift::Inwards;
    const Px token = lower == Shift::None ? Px::PX_RangeTo : Px::PX_RangeFrom;
    ChangeDraft &draft = add(isNarrower ? Change::RangeNarrowed : Change::RangeWidened, m_column.both);
    draft.told.oldText = rangeText(oldText(Px::PX_RangeFrom), oldText(Px::PX_RangeTo));
    draft.told.newText = rangeText(newText(Px::PX_RangeFrom), newText(Px::PX_RangeTo));
    draft.told.oldPlace = m_pair.oldEdition.placeOf(m_before.record, int(token));
    draft.told.newPlace = m_pair.newEdition.placeOf(m_after.record, int(token));
    const auto named = [](const QString &range) {
        return range.isEmpty() ? QStringLiteral("none") : shown(range);
    };
    draft.told.message =
        QStringLiteral("range %1 → %2").arg(named(draft.told.oldText), named(draft.told.newText));
}

// A length of 0 is no limit, as none at all.
void FieldComparison::compareNumbers()
{
    const auto numbersOf = [this](Px token) {
        return std::make_pair(m_pair.oldEdition.catalog().number(m_before.record, token),
                              m_pair.newEdition.catalog().number(m_after.record, token));
    };
    const auto [oldLength, newLength] = numbersOf(Px::PX_Length);
    const auto limited = [](int length) { return length <= 0 ? std::numeric_limits<int>::max() : length; };
    if (limited(oldLength) != limited(newLength))
        tell(limited(newLength) < limited(oldLength) ? Change::LengthShortened : Change::LengthIncreased,
             "length", Px::PX_Length);
    const auto [oldDecimals, newDecimals] = numbersOf(Px::PX_Precision);
    if (oldDecimals != newDecimals)
        tell(newDecimals < oldDecimals ? Change::DecimalsReduced : Change::DecimalsAdded, "decimals",
             Px::PX_Precision);
}

void FieldComparison::compareTexts()
{
    for (const TextProperty &property : fieldTexts) {
        if (!isSame(property.token))
            tell(property.change, property.name, property.token);
    }
    for (const ParameterProperty &property : parameterTexts) {
        if (!isSame(property.token))
            tell(property.change, property.name, property.token);
    }
    if (oldText(ParameterToken::PARAM_TypeFlags).toLongLong()
        != newText(ParameterToken::PARAM_TypeFlags).toLongLong())
        tell(Change::FieldFlagsChanged, "type flags", ParameterToken::PARAM_TypeFlags);
}

void FieldComparison::tellList(Change change, CatalogChangeClass changeClass, const Set &profiles,
                               const QString &message)
{
    const Set touched = intersection(profiles, m_column.both);
    if (touched.empty())
        return;
    ChangeDraft &draft = add(change, changeClass, touched);
    // So that all fields that are changed in the same profiles share the set.
    if (touched == profiles)
        draft.profiles = profiles;
    draft.told.oldText = oldText(Px::PX_ListClass_ID);
    draft.told.newText = newText(Px::PX_ListClass_ID);
    draft.told.list = draft.told.newText;
    draft.told.oldPlace = m_pair.oldEdition.placeOf(m_before.record, int(Px::PX_ListClass_ID));
    draft.told.newPlace = m_pair.newEdition.placeOf(m_after.record, int(Px::PX_ListClass_ID));
    draft.told.message = message;
}

void FieldComparison::compareLists()
{
    if (m_before.list == 0 && m_after.list == 0)
        return;
    if (isSame(Px::PX_ListClass_ID))
        m_lists.add(m_before.list, m_after.list, m_newItem, m_column.both);
    const ListRelation &relation = m_lists.relation(m_before.list, m_after.list);
    const QString names = fromTo(oldText(Px::PX_ListClass_ID), newText(Px::PX_ListClass_ID));
    tellList(Change::ListAttached, CatalogChangeClass::Breaking, relation.attached,
             QStringLiteral("offers list %1 now").arg(shown(newText(Px::PX_ListClass_ID))));
    tellList(Change::ListDetached, CatalogChangeClass::Addition, relation.detached,
             QStringLiteral("list %1 gone").arg(shown(oldText(Px::PX_ListClass_ID))));
    tellList(Change::ListExchanged, CatalogChangeClass::Breaking, relation.losing,
             QStringLiteral("list %1, in which values are missing").arg(names));
    tellList(Change::ListExchanged, CatalogChangeClass::Addition, relation.exchanged,
             QStringLiteral("list %1, with all values of the old one").arg(names));
}

} // namespace Orvida::Checking
