#include "checking/rules/ReadingRules_p.h"

#include "checking/reading/EncodingFault_p.h"
#include "checking/rules/Check_p.h"

#include <QCoreApplication>
#include <QStringList>

namespace Orvida::Checking {

using Catalogs::CatalogReadFailure;

namespace {

// What the XML reader says, in the language of the program.
QString readerText(const char *english)
{
    return QCoreApplication::translate("QXmlStream", english);
}

bool begins(const QString &detail, const char *english)
{
    return detail.startsWith(readerText(english).section(QStringLiteral("%1"), 0, 0));
}

QString withoutFullStop(const QString &detail)
{
    return shown(detail.endsWith(QLatin1Char('.')) ? QStringView(detail).chopped(1) : QStringView(detail));
}

QString openElementsHint(const LocatedCatalog &catalog)
{
    if (catalog.openElements.empty())
        return QStringLiteral("there is no XML in it");
    QStringList names;
    for (const LocatedCatalog::OpenElement &element : catalog.openElements)
        names.prepend(QStringLiteral("%1 from line %2")
                          .arg(tag(catalog.texts.text(element.name)), QString::number(element.start.line)));
    return QStringLiteral("the file is cut off, or end tags are missing: open are ")
           + names.join(QStringLiteral(", "));
}

QString mismatchHint(const LocatedCatalog &catalog)
{
    if (catalog.openElements.empty())
        return QString();
    const LocatedCatalog::OpenElement &open = catalog.openElements.back();
    return QStringLiteral("the open element is %1 from line %2")
        .arg(tag(catalog.texts.text(open.name)), QString::number(open.start.line));
}

QString malformedHint(const LocatedCatalog &catalog, const QString &detail)
{
    static const struct
    {
        const char *beginning;
        const char *hint;
    } hints[] = {
        {"Entity '%1' not declared.", "write the character itself; for an ampersand write &amp;"},
        {"XML declaration not at start of document.", "remove what precedes <?xml"},
        {"Sequence ']]>' not allowed in content.", "write ]]&gt;"},
        {"Extra content at end of document.", "remove what follows the end tag of the root element"},
        {"Start tag expected.", "this is no XML file, or something precedes its first tag"},
        {"Invalid character reference.", "there is no such character in XML"},
        {"Expected '#' or", "for an ampersand write &amp;"},
        {"Expected ';'", "for an ampersand write &amp;"},
        {"Expected '>'", "a comment may not contain two hyphens in a row"},
        {"Unexpected '", "for < in a text write &lt;"},
    };
    if (begins(detail, "Opening and ending tag mismatch."))
        return mismatchHint(catalog);
    if (begins(detail, "Premature end of document."))
        return openElementsHint(catalog);
    for (const auto &row : hints) {
        if (begins(detail, row.beginning))
            return QString::fromUtf8(row.hint);
    }
    return QString();
}

// Tells the byte, which is where the fault is; the reader's position is elsewhere.
bool reportWrongEncoding(Check &check)
{
    const auto fault = findEncodingFault(check.fileName, check.catalog.declaredEncoding);
    if (!fault)
        return false;
    if (CatalogFinding *finding = check.add(Fault(Rule::WrongEncoding, placeAt(fault->at)))) {
        finding->message = QStringLiteral("the byte 0x%1 is no %2")
                               .arg(QString::number(fault->byte, 16).toUpper(), fault->encoding);
        finding->hint = QStringLiteral("save the file as UTF-8, or declare its encoding in the first line");
    }
    return true;
}

bool reportUnknownEncoding(Check &check)
{
    const QString &detail = check.readingFault.detail;
    const bool isUnsupported =
        detail.startsWith(readerText("Encoding %1 is unsupported").section(QLatin1Char('%'), 0, 0));
    const bool isInvalid = detail.endsWith(readerText("%1 is an invalid encoding name.").mid(2));
    if (!isUnsupported && !isInvalid)
        return false;
    const Position at{quint32(check.readingFault.line), quint32(check.readingFault.column)};
    if (CatalogFinding *finding = check.add(Fault(Rule::UnknownEncoding, placeAt(at)))) {
        finding->message = QStringLiteral("the encoding that the file declares is unknown: ") + shown(detail);
        finding->hint = QStringLiteral("save the file as UTF-8 and declare encoding=\"UTF-8\"");
    }
    return true;
}

} // namespace

void findReadingFault(Check &check)
{
    const CatalogReadFailure &failure = check.readingFault;
    if (failure.reason == CatalogReadFailure::FileNotRead) {
        if (CatalogFinding *finding = check.add(Fault(Rule::FileNotRead, wholeFile()))) {
            finding->message = QStringLiteral("cannot read the file: ") + failure.detail;
            finding->hint = QStringLiteral("check its name, and the right to read it");
        }
        return;
    }
    if (failure.reason != CatalogReadFailure::NotWellFormed || reportUnknownEncoding(check))
        return;
    if (failure.detail == readerText("Encountered incorrectly encoded content.")
        && reportWrongEncoding(check))
        return;
    const Position at{quint32(failure.line), quint32(failure.column)};
    if (CatalogFinding *finding = check.add(Fault(Rule::NotWellFormed, placeAt(at)))) {
        finding->message = QStringLiteral("not well-formed XML: ") + withoutFullStop(failure.detail);
        finding->hint = malformedHint(check.catalog, failure.detail);
    }
}

namespace {

bool isContinuation(QChar character)
{
    return character.unicode() >= 0x80 && character.unicode() <= 0xBF;
}

// How many letters look like two bytes of UTF-8, each read as a character.
int pairsLikeUtf8(QStringView text)
{
    int count = 0;
    for (int i = 0; i + 1 < text.size(); ++i) {
        const ushort lead = text.at(i).unicode();
        count += (lead == 0xC2 || lead == 0xC3) && isContinuation(text.at(i + 1));
    }
    return count;
}

bool hasMoreThanAscii(QStringView text)
{
    return std::any_of(text.begin(), text.end(), [](QChar character) { return character.unicode() > 127; });
}

// Whether a value is written in the file as it is.
bool isPlain(const Check &check, int record, const LocatedField &field)
{
    return check.catalog.isReadable || !check.catalog.format(record, field).isScrambled();
}

void reportSuspiciousEncoding(Check &check, const Place &place, Symbol text, int count, bool isUtf8)
{
    CatalogFinding *finding = check.add(Fault(Rule::SuspiciousEncoding, place).times(count));
    if (!finding)
        return;
    finding->message = QStringLiteral("%1 looks like UTF-8 that was read as %2")
                           .arg(check.quotedText(text), isUtf8 ? check.catalog.declaredEncoding
                                                               : QStringLiteral("a one-byte encoding"));
    finding->hint = isUtf8 ? QStringLiteral("declare encoding=\"UTF-8\"")
                           : QStringLiteral("type the letters again, or convert the file from its origin");
}

} // namespace

void findSuspiciousEncoding(Check &check)
{
    constexpr int enough = 3;
    const bool isUtf8 = isOneByteEncoding(check.catalog.declaredEncoding) && isUtf8File(check.fileName);
    const auto isWanted = [isUtf8](QStringView text) {
        return isUtf8 ? hasMoreThanAscii(text) : pairsLikeUtf8(text) > 0;
    };
    int count = 0;
    Place first;
    Symbol text = 0;
    check.forEachValue(isWanted, [&](int record, const LocatedField &field) {
        if (isUtf8 && !isPlain(check, record, field))
            return;
        if (count == 0) {
            first = placeOf(check.catalog, record, field);
            text = field.value;
        }
        count += isUtf8 ? 1 : pairsLikeUtf8(check.text(field.value));
    });
    if (count > 0 && (isUtf8 || count >= enough))
        reportSuspiciousEncoding(check, first, text, count, isUtf8);
}

void findReplacementCharacters(Check &check)
{
    const auto hasOne = [](QStringView text) {
        return std::find(text.begin(), text.end(), QChar(QChar::ReplacementCharacter)) != text.end();
    };
    check.forEachValue(hasOne, [&](int record, const LocatedField &field) {
        // Other rules look at scrambled texts.
        if (!isPlain(check, record, field))
            return;
        const Place place = placeOf(check.catalog, record, field);
        if (CatalogFinding *finding = check.add(Fault(Rule::ReplacementCharacter, place))) {
            finding->message = QStringLiteral("a character of %1 was lost: %2")
                                   .arg(place.field, check.quotedText(field.value));
            finding->hint = QStringLiteral("type it again");
        }
    });
}

void findDocumentType(Check &check)
{
    check.forEachIncident(Incident::DocumentType, [&](const Incident &incident) {
        if (CatalogFinding *finding = check.add(Fault(Rule::DocumentType, placeAt(incident.at)))) {
            finding->message =
                QStringLiteral("of a document type, only the entities declared in it are read");
            finding->hint = QStringLiteral("remove it");
        }
    });
}

void findUnresolvedEntities(Check &check)
{
    check.forEachIncident(Incident::UnresolvedEntity, [&](const Incident &incident) {
        const QString field = check.shownText(incident.name);
        const Place place = placeAt(incident.at, incident.record, field);
        if (CatalogFinding *finding = check.add(Fault(Rule::UnresolvedEntity, place))) {
            finding->message = QStringLiteral("&%1; is declared nowhere; the text of %2 ends before it")
                                   .arg(check.shownText(incident.detail), field);
            finding->hint = QStringLiteral("write the character itself");
        }
    });
}

} // namespace Orvida::Checking
