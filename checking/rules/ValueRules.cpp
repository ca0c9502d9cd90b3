#include "checking/rules/ValueRules_p.h"

#include "catalogs/reading/FieldConversion_p.h"
#include "checking/rules/Check_p.h"
#include "checking/rules/FieldTypes_p.h"
#include "checking/rules/ListValues_p.h"

#include <QStringList>

#include <cmath>
#include <map>
#include <optional>

namespace Orvida::Checking {

namespace {

using Kind = CatalogFormat::Kind;
using Px = ParameterExtensionToken;

bool isBool(const Check &check, Symbol symbol)
{
    const QString text = check.catalog.texts.string(symbol);
    return Catalogs::isBool(QStringRef(&text));
}

// Words by which people mean false.
bool meansFalse(QStringView text)
{
    static const QStringList words = {
        QString(),
        QStringLiteral("0"),
        QStringLiteral("no"),
        QStringLiteral("n"),
        QStringLiteral("off"),
        QStringLiteral("non"),
        QStringLiteral("nein"),
        QStringLiteral("false"),
    };
    return words.contains(text.trimmed().toString().toLower());
}

void reportBadBoolean(Check &check, int record, const LocatedField &field)
{
    const qint64 subject = pairOf(int(check.catalog.record(record).kind) << 8 | field.token, field.value);
    const bool isFalse = meansFalse(check.text(field.value));
    CatalogFinding *finding = check.add(Fault(Rule::BadBoolean, placeOf(check.catalog, record, field))
                                            .as(isFalse ? CatalogSeverity::Warning : CatalogSeverity::Error)
                                            .about(subject));
    if (!finding)
        return;
    finding->message = QStringLiteral("%1 %2 is no boolean and reads as false")
                           .arg(finding->field, check.quotedText(field.value));
    finding->hint = QStringLiteral("write true or false, without spaces");
}

} // namespace

// Each value is converted, also one that does not count in the end.
void findBadBooleans(Check &check)
{
    check.forEachField([&](int record, const LocatedField &field) {
        if (check.catalog.format(record, field).kind == Kind::Boolean && !isBool(check, field.value))
            reportBadBoolean(check, record, field);
    });
}

namespace {

bool isWholeNumber(const Check &check, const CatalogFormat::Field &format, Symbol symbol)
{
    const QString text = check.catalog.texts.string(symbol);
    bool isNumber = false;
    if (format.kind == Kind::Integer64)
        Catalogs::toInt64(QStringRef(&text), &isNumber);
    else
        Catalogs::toInt(QStringRef(&text), &isNumber);
    return isNumber;
}

QString numberHint(const CatalogFormat::Field &format, const QString &text)
{
    bool isNumber = false;
    const double value = QString(text).replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&isNumber);
    if (!isNumber)
        return QStringLiteral("write a whole number in digits");
    if (value != std::floor(value))
        return QStringLiteral("write a whole number: %1").arg(std::round(value), 0, 'f', 0);
    return format.kind == Kind::Integer64
               ? QStringLiteral("write digits only; the limits are those of 64 bits")
               : QStringLiteral("write digits only, from -2147483648 to 2147483647");
}

void reportBadNumber(Check &check, const Place &place, const CatalogFormat::Field &format, Symbol value)
{
    const bool isUnused = format.use == CatalogFormat::Use::Stored;
    CatalogFinding *finding = check.add(
        Fault(Rule::BadNumber, place).as(isUnused ? CatalogSeverity::Warning : CatalogSeverity::Error));
    if (!finding)
        return;
    finding->message =
        QStringLiteral("%1 %2 is no whole number and reads as 0").arg(place.field, check.quotedText(value));
    finding->hint = numberHint(format, check.catalog.texts.string(value));
}

} // namespace

// The text of CAT_Style is looked for right after the start tag only.
void findBadNumbers(Check &check)
{
    check.forEachField([&](int record, const LocatedField &field) {
        const CatalogFormat::Field &format = check.catalog.format(record, field);
        const bool isNumber = format.kind == Kind::Integer || format.kind == Kind::Integer64;
        if (isNumber && !field.isOverruled && !isWholeNumber(check, format, field.value))
            reportBadNumber(check, placeOf(check.catalog, record, field), format, field.value);
    });
    check.forEachIncident(Incident::StyleNotAtOnce, [&](const Incident &incident) {
        const QString field = check.shownText(incident.name);
        CatalogFinding *finding =
            check.add(Fault(Rule::BadNumber, placeAt(incident.at, incident.record, field)));
        if (finding) {
            finding->message = QStringLiteral("%1 reads as 0: something precedes its number").arg(field);
            finding->hint = QStringLiteral("put the number right after the start tag");
        }
    });
}

namespace {

QString typeHint(const QString &text)
{
    NearName near(text);
    QStringList words;
    for (const QLatin1String word : CatalogFormat::words(Kind::ParameterType)) {
        near.offer(QString(word));
        words.append(word);
    }
    return near.nearest().isEmpty() ? QStringLiteral("write one of ") + words.join(QStringLiteral(", "))
                                    : didYouMean(near.nearest());
}

} // namespace

void findBadParameterTypes(Check &check)
{
    check.forEachRecord(Section::PARAM, [&](int record) {
        if (!check.links.counts(record) || parameterType(check, record) != Type::Undefined)
            return;
        const Place place = placeOf(check.catalog, record, ParameterToken::PARAM_DataType);
        CatalogFinding *finding = check.add(Fault(Rule::BadParameterType, place));
        if (!finding)
            return;
        const Symbol type = check.catalog.value(record, ParameterToken::PARAM_DataType);
        finding->message = type == 0 ? QStringLiteral("parameter %1 has no type").arg(check.keyOf(record))
                                     : QStringLiteral("parameter %1 has no known type: %2 is none")
                                           .arg(check.keyOf(record), check.quotedText(type));
        finding->hint = typeHint(check.text(type).toString());
    });
}

// The reader drops such a column; the host decides which types there are.
void findBadColumnTypes(Check &check)
{
    check.forEachRecord(Section::COL, [&](int record) {
        if (columnType(check, record) != Type::Undefined)
            return;
        const Symbol type = check.catalog.value(record, ColumnToken::COL_DataType);
        const Symbol column = check.catalog.value(record, ColumnToken::COL_Column_ID);
        const int fields = check.links.inputFieldsOfColumn(column).size();
        const Place place = placeOf(check.catalog, record, ColumnToken::COL_DataType);
        // Where no profile has the column, its fields are counted as references to it.
        const int affected = check.links.columns(column).isEmpty() ? 0 : fields;
        CatalogFinding *finding =
            check.add(Fault(Rule::BadColumnType, place).losing(record).affecting(affected));
        if (!finding)
            return;
        finding->message = QStringLiteral("column %1 of profile %2 is dropped: %3; %4 missing there")
                               .arg(check.shownText(column),
                                    check.shownText(check.catalog.value(record, ColumnToken::COL_Profile_FK)),
                                    type == 0 ? QStringLiteral("it has no type")
                                              : QStringLiteral("%1 is no type").arg(check.quotedText(type)),
                                    fields == 1 ? QStringLiteral("1 field is")
                                                : QStringLiteral("%1 fields are").arg(fields));
        finding->hint = typeHint(check.text(type).toString());
    });
}

void findColumnsWithoutVisible(Check &check)
{
    check.links.columns().forEach([&](const Groups::Members &records) {
        if (check.links.inputFieldsOfColumn(Symbol(records.key())).isEmpty())
            return;
        for (const int record : records) {
            if (check.catalog.value(record, ColumnToken::COL_Visible) != 0)
                continue;
            CatalogFinding *finding = check.add(
                Fault(Rule::ColumnWithoutVisible, placeOf(check.catalog, record)).about(records.key()));
            if (!finding)
                continue;
            finding->message =
                QStringLiteral("column %1 of profile %2 is hidden, because COL_Visible is missing")
                    .arg(check.shownText(Symbol(records.key())),
                         check.shownText(check.catalog.value(record, ColumnToken::COL_Profile_FK)));
            finding->hint = QStringLiteral("write it: true or false");
        }
    });
}

void findHiddenMandatoryFields(Check &check)
{
    check.forEachFieldAndColumn([&](const CatalogLinks::InputField &field, int column) {
        if (!check.catalog.flag(field.record, Px::PX_Mandatory)
            || check.catalog.value(field.record, Px::PX_Default) != 0)
            return;
        const bool isHidden = !check.catalog.flag(column, ColumnToken::COL_Visible);
        if (!isHidden && !check.catalog.flag(column, ColumnToken::COL_ReadOnly))
            return;
        const Place place = placeOf(check.catalog, field.record, Px::PX_Mandatory);
        CatalogFinding *finding = check.add(Fault(Rule::MandatoryHidden, place).about(field.column));
        if (!finding)
            return;
        finding->message =
            QStringLiteral("field %1 must be filled in, but cannot be in profile %2: its column is %3 there")
                .arg(check.keyOf(field.record),
                     check.shownText(check.catalog.value(column, ColumnToken::COL_Profile_FK)),
                     isHidden ? QStringLiteral("hidden") : QStringLiteral("read-only"));
        finding->hint = QStringLiteral("give it a default, or change the column");
        FindingReport::relate(*finding, placeOf(check.catalog, column), QStringLiteral("the column"));
    });
}

void findDifferentColumnTypes(Check &check)
{
    check.links.columns().forEach([&](const Groups::Members &records) {
        const Symbol type = check.catalog.value(records.first(), ColumnToken::COL_DataType);
        for (const int record : records) {
            const Symbol other = check.catalog.value(record, ColumnToken::COL_DataType);
            if (other == type)
                continue;
            const Place place = placeOf(check.catalog, record, ColumnToken::COL_DataType);
            CatalogFinding *finding = check.add(Fault(Rule::ColumnTypeDiffers, place).about(records.key()));
            if (!finding)
                continue;
            finding->message = QStringLiteral("column %1 is %2 here, and %3 in line %4")
                                   .arg(check.shownText(Symbol(records.key())), check.shownText(other),
                                        check.shownText(type), check.lineOf(records.first()));
            finding->hint = QStringLiteral("a column has one type in all profiles");
        }
    });
}

void findTypesUnlikeColumn(Check &check)
{
    for (const CatalogLinks::InputField &field : check.links.inputFields()) {
        const Groups::Members columns = check.links.columns(field.column);
        const Type type = parameterType(check, field.parameter);
        if (columns.isEmpty() || type == Type::Undefined)
            continue;
        const Type other = columnType(check, columns.first());
        if (other == type || (other == Type::Text && field.list != 0))
            continue;
        const Place place = placeOf(check.catalog, field.record, Px::PX_Column_ID);
        CatalogFinding *finding =
            check.add(Fault(Rule::TypeDiffersFromColumn, place).about(pairOf(field.parameter, field.column)));
        if (!finding)
            continue;
        finding->message =
            QStringLiteral("field %1 is %2, its column %3 is %4")
                .arg(check.keyOf(field.record),
                     check.shownText(check.catalog.value(field.parameter, ParameterToken::PARAM_DataType)),
                     check.shownText(field.column),
                     check.shownText(check.catalog.value(columns.first(), ColumnToken::COL_DataType)));
        finding->hint = QStringLiteral("give both one type: PARAM_DataType, COL_DataType");
    }
}

namespace {

// A number in the C locale, as ranges and defaults have it.
std::optional<double> numberOf(const Check &check, Symbol symbol)
{
    bool isNumber = false;
    const double number = check.catalog.texts.string(symbol).toDouble(&isNumber);
    return isNumber && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

// The texts of an input field that are numbers when its type is one.
constexpr Px rangeTokens[] = {Px::PX_RangeFrom, Px::PX_RangeTo, Px::PX_Steps, Px::PX_Default};

void reportNoNumber(Check &check, int record, const LocatedField &field)
{
    CatalogFinding *finding = check.add(Fault(Rule::RangeNotANumber, placeOf(check.catalog, record, field)));
    if (!finding)
        return;
    QString text = check.catalog.texts.string(field.value);
    finding->message = QStringLiteral("%1 %2 is no number").arg(finding->field, quoted(text));
    text.replace(QLatin1Char(','), QLatin1Char('.'));
    bool isNumber = false;
    text.toDouble(&isNumber);
    finding->hint =
        isNumber ? QStringLiteral("write %1").arg(text) : QStringLiteral("write a number, such as 0.5");
}

void reportFraction(Check &check, int record, const LocatedField &field)
{
    if (CatalogFinding *finding =
            check.add(Fault(Rule::FractionInInteger, placeOf(check.catalog, record, field)))) {
        finding->message = QStringLiteral("%1 %2 is no whole number, but the field is INT")
                               .arg(finding->field, check.quotedText(field.value));
        finding->hint = QStringLiteral("write a whole number, or make the parameter DEC");
    }
}

void reportNumbers(Check &check, const CatalogLinks::InputField &field, Type type)
{
    for (const Px token : rangeTokens) {
        const LocatedField *text = check.catalog.field(field.record, token);
        if (!text || text->value == 0 || (token == Px::PX_Default && field.list != 0))
            continue;
        const std::optional<double> number = numberOf(check, text->value);
        if (!number)
            reportNoNumber(check, field.record, *text);
        else if (type == Type::Integer && *number != std::floor(*number))
            reportFraction(check, field.record, *text);
    }
}

void reportStep(Check &check, int record, std::optional<double> width)
{
    const Symbol text = check.catalog.value(record, Px::PX_Steps);
    const std::optional<double> step = numberOf(check, text);
    const bool isTooWide = step && width && *step > *width;
    if (!step || (*step > 0 && !isTooWide))
        return;
    const Place place = placeOf(check.catalog, record, Px::PX_Steps);
    if (CatalogFinding *finding = check.add(Fault(Rule::StepNotPositive, place)))
        finding->message = QStringLiteral("the step %1 is %2")
                               .arg(check.shownText(text), isTooWide ? QStringLiteral("wider than the range")
                                                                     : QStringLiteral("not above 0"));
}

void reportRange(Check &check, int record)
{
    const Symbol from = check.catalog.value(record, Px::PX_RangeFrom);
    const Symbol to = check.catalog.value(record, Px::PX_RangeTo);
    const std::optional<double> least = numberOf(check, from);
    const std::optional<double> greatest = numberOf(check, to);
    const bool isReversed = least && greatest && *least > *greatest;
    reportStep(check, record,
               least && greatest && !isReversed ? std::optional(*greatest - *least) : std::nullopt);
    if (!isReversed)
        return;
    const Place place = placeOf(check.catalog, record, Px::PX_RangeFrom);
    if (CatalogFinding *finding = check.add(Fault(Rule::RangeReversed, place))) {
        finding->message =
            QStringLiteral("no value is between %1 and %2").arg(check.shownText(from), check.shownText(to));
        finding->hint = QStringLiteral("swap PX_RangeFrom and PX_RangeTo");
    }
}

void reportRangeOnText(Check &check, int record, Type type)
{
    const bool hasFrom = check.catalog.value(record, Px::PX_RangeFrom) != 0;
    const bool hasTo = check.catalog.value(record, Px::PX_RangeTo) != 0;
    if ((hasFrom || hasTo) && (type == Type::Text || type == Type::Boolean)) {
        CatalogFinding *finding = check.add(Fault(Rule::RangeOnText, placeOf(check.catalog, record)));
        if (finding) {
            finding->message =
                QStringLiteral("field %1 has a range, but is no number and no date").arg(check.keyOf(record));
            finding->hint = QStringLiteral("for the length of texts there is PX_Length");
        }
    }
    if (hasFrom == hasTo)
        return;
    if (CatalogFinding *finding = check.add(Fault(Rule::RangeOneSided, placeOf(check.catalog, record))))
        finding->message =
            QStringLiteral("field %1 has one limit only: its caption shows none").arg(check.keyOf(record));
}

} // namespace

void findBadRanges(Check &check)
{
    for (const CatalogLinks::InputField &field : check.links.inputFields()) {
        if (!hasTypeAndColumn(check, field))
            continue;
        const Type type = parameterType(check, field.parameter);
        reportRangeOnText(check, field.record, type);
        if (!isNumeric(type))
            continue;
        reportNumbers(check, field, type);
        reportRange(check, field.record);
    }
}

namespace {

// Of a number such as 0.25, or of a format such as 0.00.
int decimalsOf(QStringView text)
{
    int decimals = 0;
    bool isAfterPoint = false;
    for (const QChar character : text) {
        if (character == QLatin1Char('.'))
            isAfterPoint = true;
        else if (isAfterPoint && (character.isDigit() || character == QLatin1Char('#')))
            ++decimals;
    }
    return decimals;
}

// Of whole numbers, fractions are reported as such.
bool hasDecimals(int token, Type type)
{
    const bool isLimit =
        token == int(Px::PX_Steps) || token == int(Px::PX_RangeFrom) || token == int(Px::PX_RangeTo);
    return token == int(Px::PX_InputFmt) || (isLimit && type == Type::Decimal);
}

void reportDecimals(Check &check, int record, Type type)
{
    const LocatedField *precision = check.catalog.field(record, Px::PX_Precision);
    if (!precision)
        return;
    const int decimals = check.catalog.toNumber(precision->value);
    for (const LocatedField *text = check.catalog.begin(record); text != check.catalog.end(record); ++text) {
        if (text->isOverruled || !hasDecimals(text->token, type)
            || decimalsOf(check.text(text->value)) <= decimals)
            continue;
        CatalogFinding *finding =
            check.add(Fault(Rule::DecimalsDiffer, placeOf(check.catalog, record, *text)).about(record));
        if (finding)
            finding->message =
                QStringLiteral("%1 %2 has more decimals than PX_Precision %3")
                    .arg(finding->field, check.quotedText(text->value), check.shownText(precision->value));
    }
}

} // namespace

void findBadLengths(Check &check)
{
    for (const CatalogLinks::InputField &field : check.links.inputFields()) {
        for (const Px token : {Px::PX_Length, Px::PX_Precision}) {
            if (check.catalog.number(field.record, token) >= 0)
                continue;
            const Place place = placeOf(check.catalog, field.record, token);
            if (CatalogFinding *finding = check.add(Fault(Rule::NegativeLength, place)))
                finding->message = QStringLiteral("%1 is below 0").arg(place.field);
        }
        const Type type = parameterType(check, field.parameter);
        if (isNumeric(type) && hasTypeAndColumn(check, field))
            reportDecimals(check, field.record, type);
    }
}

namespace {

void reportDefaultOutOfRange(Check &check, int record, const Place &place, Symbol text)
{
    const std::optional<double> value = numberOf(check, text);
    const std::optional<double> least = numberOf(check, check.catalog.value(record, Px::PX_RangeFrom));
    const std::optional<double> greatest = numberOf(check, check.catalog.value(record, Px::PX_RangeTo));
    const bool isReversed = least && greatest && *least > *greatest;
    if (!value || isReversed || ((!least || *value >= *least) && (!greatest || *value <= *greatest)))
        return;
    if (CatalogFinding *finding = check.add(Fault(Rule::DefaultOutOfRange, place)))
        finding->message = QStringLiteral("the default %1 is outside the range").arg(check.shownText(text));
}

} // namespace

void findBadDefaults(Check &check)
{
    for (const CatalogLinks::InputField &field : check.links.inputFields()) {
        const Symbol text = check.catalog.value(field.record, Px::PX_Default);
        if (text == 0 || !hasTypeAndColumn(check, field))
            continue;
        const Type type = parameterType(check, field.parameter);
        const Place place = placeOf(check.catalog, field.record, Px::PX_Default);
        if (isNumeric(type))
            reportDefaultOutOfRange(check, field.record, place, text);
        const int length = check.catalog.number(field.record, Px::PX_Length);
        if (type != Type::Text || length <= 0 || check.text(text).size() <= length)
            continue;
        if (CatalogFinding *finding = check.add(Fault(Rule::DefaultTooLong, place)))
            finding->message = QStringLiteral("the default %1 is longer than PX_Length %2")
                                   .arg(check.quotedText(text), QString::number(length));
    }
}

namespace {

// What the author may have meant instead of a value: one that is near, or that of the caption given.
QString valueHint(Check &check, int list, Symbol text)
{
    constexpr int mostNamed = 5;
    NearName near(check.text(text));
    QStringList values;
    const ValueChoice choice = valueChoice(check, list);
    for (const int entry : entriesOf(check, list)) {
        if (!check.mayCompare())
            break;
        const Symbol value = listValue(check, choice, entry);
        near.offer(check.text(value));
        if (check.catalog.value(entry, ListItemToken::LIST_Caption) == text
            || check.catalog.value(entry, ListItemToken::LIST_Item) == text)
            return QStringLiteral("the value of that entry is %1").arg(check.shownText(value));
        if (values.size() < mostNamed)
            values.append(check.shownText(value));
    }
    return near.nearest().isEmpty()
               ? QStringLiteral("its values begin with ") + values.join(QStringLiteral(", "))
               : didYouMean(near.nearest());
}

} // namespace

void findDefaultsOutsideLists(Check &check)
{
    std::map<qint64, int> numbers; // of lists with the same values, by their common key
    Groups values;
    forEachValues(check, true, [&](const Groups::Members &lists) {
        const int number = numbers.insert({lists.key(), int(numbers.size())}).first->second;
        const ValueChoice choice = valueChoice(check, lists.first());
        for (const int entry : entriesOf(check, lists.first()))
            values.add(pairOf(number, listValue(check, choice, entry)), entry);
    });
    values.sort();
    check.forEachFieldAndColumn([&](const CatalogLinks::InputField &field, int column) {
        const Symbol text = check.catalog.value(field.record, Px::PX_Default);
        if (text == 0 || field.list == 0 || !hasTypeAndColumn(check, field))
            return;
        const int list =
            check.links.list(field.list, check.catalog.value(column, ColumnToken::COL_Profile_FK));
        if (list < 0 || entriesOf(check, list).isEmpty()
            || !values.of(pairOf(numbers[valuesKey(check, list)], text)).isEmpty())
            return;
        const Place place = placeOf(check.catalog, field.record, Px::PX_Default);
        CatalogFinding *finding = check.add(Fault(Rule::DefaultNotInList, place).about(field.record));
        if (!finding)
            return;
        finding->message = QStringLiteral("the default %1 is no value of list %2")
                               .arg(check.quotedText(text), listName(check, list));
        finding->hint = valueHint(check, list, text);
    });
}

namespace {

// The field of an input field that goes beyond its column; null when none does.
const LocatedField *widerField(const Check &check, int field, int column, ColumnToken *exceeded)
{
    const struct
    {
        Px token;
        ColumnToken limit;
        int sign;
    } rows[] = {{Px::PX_RangeFrom, ColumnToken::COL_RangeFrom, -1},
                {Px::PX_RangeTo, ColumnToken::COL_RangeTo, 1},
                {Px::PX_Length, ColumnToken::COL_Length, 1}};
    for (const auto &row : rows) {
        const std::optional<double> value = numberOf(check, check.catalog.value(field, row.token));
        const std::optional<double> limit = numberOf(check, check.catalog.value(column, row.limit));
        const bool isLength = row.token == Px::PX_Length;
        if (!value || !limit || (isLength && *limit <= 0) || row.sign * (*value - *limit) <= 0)
            continue;
        *exceeded = row.limit;
        return check.catalog.field(field, row.token);
    }
    return nullptr;
}

} // namespace

void findRangesWiderThanColumn(Check &check)
{
    check.forEachFieldAndColumn([&](const CatalogLinks::InputField &field, int column) {
        ColumnToken limit{};
        const LocatedField *wider = widerField(check, field.record, column, &limit);
        if (!wider || !hasTypeAndColumn(check, field))
            return;
        const Place place = placeOf(check.catalog, field.record, *wider);
        CatalogFinding *finding = check.add(Fault(Rule::RangeWiderThanColumn, place).about(field.record));
        if (!finding)
            return;
        finding->message = QStringLiteral("field %1 allows %2, its column in profile %3 only %4")
                               .arg(check.keyOf(field.record), check.shownText(wider->value),
                                    check.shownText(check.catalog.value(column, ColumnToken::COL_Profile_FK)),
                                    check.shownText(check.catalog.value(column, limit)));
        FindingReport::relate(*finding, placeOf(check.catalog, column), QStringLiteral("the column"));
    });
}

namespace {

void reportListOfColumn(Check &check, const CatalogLinks::InputField &field, int column)
{
    CatalogFinding *finding = check.add(
        Fault(Rule::ColumnListNotOnField, placeOf(check.catalog, field.record)).about(field.column));
    if (!finding)
        return;
    finding->message = QStringLiteral("field %1 has no list, although its column %2 has one")
                           .arg(check.keyOf(field.record), check.shownText(field.column));
    const int list = check.links.recordWith(KeySpace::ListClass,
                                            check.catalog.value(column, ColumnToken::COL_ListClass_REF));
    finding->hint = list < 0
                        ? QStringLiteral("PX_ListClass_ID takes the id of a list")
                        : QStringLiteral("give it PX_ListClass_ID %1")
                              .arg(check.shownText(check.catalog.value(list, ListClassToken::LC_Class_ID)));
}

void reportMandatoryColumn(Check &check, int column, int fields)
{
    const Place place = placeOf(check.catalog, column, ColumnToken::COL_Mandatory);
    CatalogFinding *finding = check.add(Fault(Rule::ColumnMandatoryNotField, place));
    if (!finding)
        return;
    finding->message =
        QStringLiteral("of column %1, %2 not mandatory: only PX_Mandatory makes a field so")
            .arg(check.shownText(check.catalog.value(column, ColumnToken::COL_Column_ID)),
                 fields == 1 ? QStringLiteral("1 field is") : QStringLiteral("%1 fields are").arg(fields));
    finding->hint = QStringLiteral("write PX_Mandatory true in them, or COL_Mandatory false");
}

// The first definition of a column of which this is true; -1 when there is none.
template <typename IsWanted>
int firstColumn(const Groups::Members &columns, IsWanted isWanted)
{
    const auto found = std::find_if(columns.begin(), columns.end(), isWanted);
    return found == columns.end() ? -1 : *found;
}

} // namespace

// A load takes lists and duties from input fields, and none from columns.
void findColumnWishes(Check &check)
{
    check.links.columns().forEach([&](const Groups::Members &columns) {
        const int withList = firstColumn(columns, [&](int column) {
            return check.catalog.value(column, ColumnToken::COL_ListClass_REF) != 0;
        });
        const int mandatory = firstColumn(
            columns, [&](int column) { return check.catalog.flag(column, ColumnToken::COL_Mandatory); });
        int optional = 0;
        for (const int index : check.links.inputFieldsOfColumn(Symbol(columns.key()))) {
            const CatalogLinks::InputField &field = check.links.inputField(index);
            if (withList >= 0 && field.list == 0)
                reportListOfColumn(check, field, withList);
            optional += !check.catalog.flag(field.record, Px::PX_Mandatory);
        }
        if (mandatory >= 0 && optional > 0)
            reportMandatoryColumn(check, mandatory, optional);
    });
}

void findDifferentUnits(Check &check)
{
    if (!check.report.isOn(Rule::UnitDiffers))
        return;
    for (const CatalogLinks::InputField &field : check.links.inputFields()) {
        const Groups::Members columns = check.links.columns(field.column);
        if (field.parameter < 0 || columns.isEmpty())
            continue;
        const Symbol unit = check.catalog.value(field.parameter, ParameterToken::PARAM_Unit);
        const Symbol columnUnit = check.catalog.value(columns.first(), ColumnToken::COL_Unit);
        if (unit == columnUnit)
            continue;
        const Place place = placeOf(check.catalog, field.record, Px::PX_Column_ID);
        CatalogFinding *finding =
            check.add(Fault(Rule::UnitDiffers, place).about(pairOf(field.parameter, field.column)));
        if (finding)
            finding->message =
                QStringLiteral("field %1 has the unit %2, its column %3")
                    .arg(check.keyOf(field.record), check.quotedText(unit), check.quotedText(columnUnit));
    }
}

void findClocksWithoutWords(Check &check)
{
    check.forEachRecord(Section::PARAM, [&](int record) {
        const QString placeholder =
            check.catalog.texts.string(check.catalog.value(record, ParameterToken::PARAM_Placeholder));
        const bool hasWords = check.catalog.value(record, ParameterToken::PARAM_Prefix) != 0
                              && check.catalog.value(record, ParameterToken::PARAM_Suffix) != 0;
        if (!check.links.counts(record) || hasWords || placeholder.toUpper() != QLatin1String("@CLK"))
            return;
        if (CatalogFinding *finding =
                check.add(Fault(Rule::ClockWithoutWords, placeOf(check.catalog, record)))) {
            finding->message =
                QStringLiteral("the caption of clock position %1 lacks words: it will read %2")
                    .arg(check.keyOf(record),
                         quoted(
                             QStringLiteral("%1 (%2 x %3)")
                                 .arg(check.catalog.text(record, ParameterToken::PARAM_Caption).toString(),
                                      check.catalog.text(record, ParameterToken::PARAM_Prefix).toString(),
                                      check.catalog.text(record, ParameterToken::PARAM_Suffix).toString())));
            finding->hint = QStringLiteral("give it PARAM_Prefix and PARAM_Suffix, such as from and to");
        }
    });
}

void findRepeatedColumnsOnCodes(Check &check)
{
    check.links.inputFieldsByItem().forEach([&](const Groups::Members &fields) {
        Groups byColumn;
        for (const int field : fields)
            byColumn.add(check.links.inputField(field).column, field);
        byColumn.sort();
        byColumn.forEach([&](const Groups::Members &equal) {
            if (equal.size() < 2 || equal.key() == 0 || fields.key() < 0
                || check.links.columns(Symbol(equal.key())).isEmpty())
                return;
            const int first = check.links.inputField(equal[0]).record;
            const int second = check.links.inputField(equal[1]).record;
            CatalogFinding *finding =
                check.add(Fault(Rule::RepeatedColumnOnCode, placeOf(check.catalog, second)));
            if (!finding)
                return;
            finding->count = equal.size() - 1;
            finding->message =
                QStringLiteral("%1 and %2 both fill column %3 of %4")
                    .arg(check.keyOf(first), check.keyOf(second), check.shownText(Symbol(equal.key())),
                         check.keyOf(check.links.item(int(fields.key())).record));
            FindingReport::relate(*finding, placeOf(check.catalog, first), QStringLiteral("the other field"));
        });
    });
}

namespace {

void reportRepeatedExportId(Check &check, int first, int second)
{
    const Place place = placeOf(check.catalog, second, ColumnToken::COL_Export_ID);
    const Symbol id = check.catalog.value(second, ColumnToken::COL_Export_ID);
    const Symbol profile = check.catalog.value(second, ColumnToken::COL_Profile_FK);
    CatalogFinding *finding = check.add(Fault(Rule::RepeatedExportId, place).about(pairOf(profile, id)));
    if (!finding)
        return;
    finding->message = QStringLiteral("columns %1 and %2 of profile %3 are both exported as %4")
                           .arg(check.shownText(check.catalog.value(first, ColumnToken::COL_Column_ID)),
                                check.shownText(check.catalog.value(second, ColumnToken::COL_Column_ID)),
                                check.shownText(profile), check.shownText(id));
    FindingReport::relate(*finding, placeOf(check.catalog, first), QStringLiteral("the other column"));
}

} // namespace

void findExportIds(Check &check)
{
    Groups byId;
    check.links.columns().forEach([&](const Groups::Members &records) {
        for (const int record : records) {
            const Symbol id = check.catalog.value(record, ColumnToken::COL_Export_ID);
            if (id != 0)
                byId.add(pairOf(check.catalog.value(record, ColumnToken::COL_Profile_FK), id), record);
            if (id != 0 || !check.catalog.flag(record, ColumnToken::COL_Transport))
                continue;
            CatalogFinding *finding =
                check.add(Fault(Rule::ExportIdMissing, placeOf(check.catalog, record)).about(records.key()));
            if (finding) {
                finding->message = QStringLiteral("column %1 is exported, but has no COL_Export_ID")
                                       .arg(check.shownText(Symbol(records.key())));
                finding->hint = QStringLiteral("give it COL_Export_ID, or write COL_Transport false");
            }
        }
    });
    byId.sort();
    byId.forEach([&](const Groups::Members &records) {
        for (int index = 1; index < records.size(); ++index)
            reportRepeatedExportId(check, records.first(), records[index]);
    });
}

} // namespace Orvida::Checking
