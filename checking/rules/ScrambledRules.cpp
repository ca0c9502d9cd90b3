#include "checking/rules/ScrambledRules_p.h"

#include "catalogs/reading/ScrambledText.h"
#include "checking/reading/Characters_p.h"
#include "checking/rules/Check_p.h"

#include <QStringList>

namespace Orvida::Checking {

using Catalogs::CatalogReadFailure;
using Catalogs::ScrambledText;

namespace {

bool isUpperHexDigit(QChar digit)
{
    return isHexDigit(digit) && !digit.isLower();
}

// The failure is that of the file as written: read as scrambled texts, its keys are empty.
void reportRefusal(Check &check, const CatalogReadFailure &failure)
{
    const Position at{quint32(failure.line), quint32(failure.column)};
    const bool isReported = std::any_of(
        check.catalog.records.begin(), check.catalog.records.end(), [at](const LocatedRecord &record) {
            return record.state == LocatedRecord::Refused && !(record.start < at) && !(at < record.start);
        });
    if (failure.reason != CatalogReadFailure::RecordRefused || isReported)
        return;
    CatalogFinding *finding =
        check.add(Fault(Rule::MissingKey, placeAt(at, -1, failure.missingFields.first())));
    if (!finding)
        return;
    finding->record = failure.record;
    finding->message = QStringLiteral("the file does not load: %1 is not scrambled")
                           .arg(failure.missingFields.join(QStringLiteral(" and ")));
    finding->hint = QStringLiteral("scramble the file");
}

} // namespace

void findReadableForm(Check &check)
{
    if (!check.clearTexts)
        return;
    const ClearTexts &clear = *check.clearTexts;
    Place place = placeAt(clear.start);
    place.end = clear.end;
    if (CatalogFinding *finding = check.add(Fault(Rule::ReadableForm, place))) {
        finding->message =
            QStringLiteral("this is the readable form: %1 of %2 scrambled texts are in the clear; a "
                           "host reads nothing of them")
                .arg(QString::number(clear.count), QString::number(clear.ofScrambled));
        finding->hint = QStringLiteral("scramble the file for hosts, or check it as a readable one");
    }
    reportRefusal(check, clear.failure);
}

namespace {

QString repaired(QStringView raw)
{
    const QStringView trimmed = raw.trimmed();
    if (isHex(trimmed) && trimmed.size() % 2 == 0)
        return QStringLiteral("remove the white space around it");
    return QStringLiteral("write ") + shown(ScrambledText::encode(raw.toString()));
}

CatalogFinding *addOdd(Check &check, Rule rule, const Place &place, Symbol raw, const char *what)
{
    CatalogFinding *finding = check.add(Fault(rule, place));
    if (finding)
        finding->message =
            QStringLiteral("%1 %2 %3").arg(place.field, check.quotedText(raw), QString::fromUtf8(what));
    return finding;
}

// Bytes that are no UTF-8 decode to replacement characters that nobody wrote.
bool isUtf8(QStringView raw, QStringView decoded)
{
    const bool hasReplacement =
        std::find(decoded.begin(), decoded.end(), QChar(QChar::ReplacementCharacter)) != decoded.end();
    return !hasReplacement || ScrambledText::encode(decoded.toString()) == raw.toString().toUpper();
}

// A zero byte ends a text, however it is rotated. One at the very end loses nothing.
bool isEndedByZero(QStringView raw)
{
    for (int index = 0; index + 2 < raw.size(); index += 2) {
        if (raw.at(index) == QLatin1Char('0') && raw.at(index + 1) == QLatin1Char('0'))
            return true;
    }
    return false;
}

void reportOdd(Check &check, int record, const LocatedField &field, Symbol raw)
{
    const Place place = placeOf(check.catalog, record, field);
    const QStringView text = check.text(raw);
    const QStringView decoded = check.text(field.value);
    CatalogFinding *finding = nullptr;
    if (!isHex(text)) {
        finding = addOdd(check, Rule::ScrambledNotHex, place, raw, "is no scrambled text");
        if (finding)
            finding->hint = repaired(text);
    } else if (text.size() % 2 != 0) {
        finding = addOdd(check, Rule::ScrambledOdd, place, raw, "has an odd number of digits");
    } else if (!isUtf8(text, decoded)) {
        finding = addOdd(check, Rule::ScrambledNotUtf8, place, raw, "does not decode");
    } else if (isEndedByZero(text)) {
        finding = addOdd(check, Rule::ScrambledZeroByte, place, raw, "has a zero byte; the rest is lost");
    }
    if (finding)
        finding->message += QStringLiteral("; it reads as ") + quoted(decoded);
}

} // namespace

void findOddScrambledTexts(Check &check)
{
    auto odd = check.catalog.oddScrambledTexts.begin();
    const auto end = check.catalog.oddScrambledTexts.end();
    for (int record = 0; record < check.catalog.recordCount() && odd != end; ++record) {
        const LocatedRecord &located = check.catalog.record(record);
        for (; odd != end && odd->field >= located.firstField
               && odd->field < located.firstField + located.fieldCount;
             ++odd) {
            const LocatedField &field = check.catalog.fields[std::size_t(odd->field)];
            // A key that is missing for this reason is reported as missing.
            if (located.state != LocatedRecord::Refused || field.value != 0)
                reportOdd(check, record, field, odd->raw);
        }
    }
}

namespace {

bool isControl(QChar character)
{
    if (character == QLatin1Char('\n') || character == QLatin1Char('\t') || character == QLatin1Char('\r'))
        return false;
    return character.category() == QChar::Other_Control || character.category() == QChar::Other_NotAssigned;
}

} // namespace

void findControlCharacters(Check &check)
{
    const auto isWanted = [](QStringView text) { return std::any_of(text.begin(), text.end(), isControl); };
    check.forEachValue(isWanted, [&](int record, const LocatedField &field) {
        if (!check.catalog.format(record, field).isScrambled() || check.catalog.isReadable
            || check.catalog.record(record).isLost() || !check.catalog.rawText(field).isEmpty())
            return;
        const Place place = placeOf(check.catalog, record, field);
        if (CatalogFinding *finding = check.add(Fault(Rule::ScrambledControl, place))) {
            finding->message = QStringLiteral("%1 decodes to control characters: %2")
                                   .arg(place.field, check.quotedText(field.value));
            finding->hint =
                QStringLiteral("perhaps it is a text in the clear, of the letters A to F and digits");
        }
    });
}

namespace {

// What a scrambled text decodes to, if it looks like one: at least `pairs` pairs of upper-case digits, and
// nothing but characters that can be printed. Otherwise empty.
QString printableText(QStringView scrambled, int pairs)
{
    if (scrambled.size() / 2 < pairs || scrambled.size() % 2 != 0
        || !std::all_of(scrambled.begin(), scrambled.end(), isUpperHexDigit))
        return QString();
    const QString raw = scrambled.toString();
    const QString decoded = ScrambledText::decode(QStringRef(&raw));
    const bool isPrintable =
        std::all_of(decoded.begin(), decoded.end(), [](QChar character) { return character.isPrint(); });
    return isPrintable && ScrambledText::encode(decoded) == raw ? decoded : QString();
}

void reportTwice(Check &check, const Place &place, Symbol value)
{
    constexpr int fewestPairs = 3;
    const QString text = printableText(check.text(value), fewestPairs);
    if (text.isEmpty())
        return;
    CatalogFinding *finding = check.add(Fault(Rule::ScrambledTwice, place));
    if (!finding)
        return;
    finding->message = check.catalog.isReadable
                           ? QStringLiteral("%1 is scrambled already: %2").arg(place.field, quoted(text))
                           : QStringLiteral("%1 is scrambled twice: %2").arg(place.field, quoted(text));
}

void reportScrambledInClear(Check &check, const Place &place, Symbol value)
{
    constexpr int fewestPairs = 4;
    const QStringView raw = check.text(value);
    const auto isLetter = [](QChar character) { return character.isLetter(); };
    if (!std::any_of(raw.begin(), raw.end(), isLetter))
        return;
    const QString text = printableText(raw, fewestPairs);
    if (!std::any_of(text.begin(), text.end(), isLetter))
        return;
    if (CatalogFinding *finding = check.add(Fault(Rule::ScrambledInClearField, place))) {
        finding->message = QStringLiteral("%1 is not scrambled in catalogs; this one holds %2")
                               .arg(place.field, quoted(text));
        finding->hint = QStringLiteral("write ") + shown(text);
    }
}

} // namespace

void findScrambledTwice(Check &check)
{
    if (check.clearTexts)
        return;
    const auto isWanted = [](QStringView text) {
        return text.size() >= 6 && std::all_of(text.begin(), text.end(), isUpperHexDigit);
    };
    check.forEachValue(isWanted, [&](int record, const LocatedField &field) {
        if (check.catalog.record(record).isLost())
            return;
        const Place place = placeOf(check.catalog, record, field);
        if (check.catalog.format(record, field).isScrambled())
            reportTwice(check, place, field.value);
        else
            reportScrambledInClear(check, place, field.value);
    });
}

} // namespace Orvida::Checking
