#include "checking/reading/CatalogLocator_p.h"

#include "catalogs/reading/RecordReader_p.h"
#include "checking/findings/NearName_p.h"
#include "checking/reading/Characters_p.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace Orvida::Checking {

using Catalogs::CatalogReadFailure;
using Catalogs::ScrambledText;

namespace {

// More of one kind would not help, but fill the memory.
constexpr int mostIncidents = 50000;
// How much is kept of a text or name that is only shown.
constexpr int longestShown = 80;
constexpr std::size_t mostOpenElements = 5;
// No directive is that long.
constexpr int longestDirective = 4000;
constexpr QLatin1String directiveStart("check:", 6);

bool isRecord(Section section)
{
    return section != Section::Unknown && section != Section::OVCAT;
}

const std::vector<QString> &recordNames()
{
    static const std::vector<QString> names = [] {
        std::vector<QString> result;
        for (const CatalogFormat::Record &record : CatalogFormat::records())
            result.push_back(record.name);
        return result;
    }();
    return names;
}

// The record that an unknown element was meant to be; `Unknown` when its name is near none.
Section recordNear(QStringView name)
{
    NearName near(name);
    for (const QString &known : recordNames())
        near.offer(known);
    const CatalogFormat::Record *found = CatalogFormat::record(QStringView(near.nearest()));
    return found ? static_cast<Section>(found->token) : Section::Unknown;
}

bool isDirective(QStringView comment)
{
    return comment.trimmed().startsWith(directiveStart);
}

bool isHexPairs(const QStringRef &text)
{
    return text.length() % 2 == 0 && isHex(text);
}

// Whether `pairs` hexadecimal pairs decode to exactly `decoded`: a replacement character or a lost rest shows
// that something is wrong with them.
bool isWholeText(QStringView decoded, int pairs)
{
    int bytes = 0;
    for (const QChar character : decoded) {
        const ushort c = character.unicode();
        // Each half of a surrogate pair makes two of its four bytes.
        bytes += c < 0x80 ? 1 : c < 0x800 || character.isSurrogate() ? 2 : 3;
        if (c == QChar::ReplacementCharacter)
            return false;
    }
    return bytes == pairs;
}

} // namespace

CatalogLocator::CatalogLocator(LocatedXml &xml, CatalogReadFailure &refusal, Catalogs::TextPool &pool,
                               LocatedCatalog &catalog)
    : m_xml(xml), m_refusal(refusal), m_pool(pool), m_catalog(catalog)
{
}

void CatalogLocator::seeOutside()
{
    switch (m_xml.tokenType()) {
    case QXmlStreamReader::StartDocument: m_catalog.declaredEncoding = m_xml.documentEncoding(); break;
    case QXmlStreamReader::StartElement: openOutside(); break;
    case QXmlStreamReader::EndElement: close(); break;
    case QXmlStreamReader::Characters: seeStrayText(-1); break;
    case QXmlStreamReader::Comment: seeComment(); break;
    case QXmlStreamReader::DTD: note(Incident::DocumentType, -1, here()); break;
    default: break;
    }
    m_tokenStart = here();
}

void CatalogLocator::beginRecord(Section kind)
{
    Open &element = m_stack.back();
    element.role = Open::Record;
    if (m_stack.size() == 1)
        note(Incident::UnknownRoot, -1, element.start, element.name);
    m_record = addRecord(kind, LocatedRecord::Kept, element.name, element.start);
    m_recordDepth = m_stack.size();
    m_isRecordTag = true;
    m_wrapper = m_record;
    m_fields.clear();
    m_oddTexts.clear();
    m_clearField = -1;
    seeAttributes(m_record);
}

void CatalogLocator::seeInside(int field)
{
    const auto token = m_xml.tokenType();
    if (m_isStyleTag && token != QXmlStreamReader::Characters && token != QXmlStreamReader::EndElement)
        note(Incident::StyleNotAtOnce, m_record, m_stack.back().start, m_stack.back().name);
    m_isStyleTag = false;
    switch (token) {
    case QXmlStreamReader::StartElement: openInside(field); break;
    case QXmlStreamReader::Characters: seeText(field); break;
    case QXmlStreamReader::EndElement:
        close();
        if (m_stack.size() < m_recordDepth)
            finishRecord();
        break;
    case QXmlStreamReader::Comment:
        cutBy(u"a comment");
        if (isDirective(m_xml.text()))
            note(Incident::MisplacedDirective, m_record, here());
        break;
    case QXmlStreamReader::ProcessingInstruction: cutBy(u"a processing instruction"); break;
    case QXmlStreamReader::EntityReference: seeEntity(); break;
    default: break;
    }
    m_tokenStart = here();
}

bool CatalogLocator::isEmpty(const CatalogFormat::Field &field) const
{
    const LocatedField *found = m_catalog.fieldOf(m_record, field.token);
    return !found || found->value == 0;
}

bool CatalogLocator::goesOnAfterRefusal()
{
    if (m_firstRefusal.reason == CatalogReadFailure::None)
        m_firstRefusal = m_refusal;
    m_refusal = CatalogReadFailure();
    m_catalog.records[std::size_t(m_record)].state = LocatedRecord::Refused;
    dropIfNeedless(m_record);
    return true;
}

void CatalogLocator::skip(LocatedXml &xml)
{
    const std::size_t depth = m_stack.size();
    startSkipping();
    while (m_stack.size() >= depth && !Catalogs::isLast(xml.readNext())) {
        switch (xml.tokenType()) {
        case QXmlStreamReader::StartElement: openSkipped(); break;
        case QXmlStreamReader::EndElement: close(); break;
        case QXmlStreamReader::Characters:
            if (m_stack.back().role == Open::LostKey)
                addLostKey();
            break;
        default: break;
        }
        m_tokenStart = here();
    }
    if (m_wrapper < 0)
        note(m_skippedKind, -1, m_skippedStart, m_skippedName);
    endDirectives();
}

CatalogReadFailure CatalogLocator::finish()
{
    m_catalog.isWhole = m_xml.tokenType() == QXmlStreamReader::EndDocument;
    if (m_recordDepth > 0) {
        finishRecord();
        m_catalog.records[std::size_t(m_record)].state = LocatedRecord::Unfinished;
    }
    if (!m_catalog.isWhole)
        endDirectives();
    const std::size_t first = m_stack.size() - std::min(m_stack.size(), mostOpenElements);
    for (std::size_t i = first; i < m_stack.size(); ++i)
        m_catalog.openElements.push_back({m_stack[i].name, m_stack[i].start});
    return m_firstRefusal;
}

Symbol CatalogLocator::symbolOf(QStringView shownText)
{
    return m_catalog.texts.symbol(shownText.left(std::min<qsizetype>(shownText.size(), longestShown)));
}

void CatalogLocator::note(Incident::Kind kind, int record, Position at, Symbol name, Symbol detail,
                          Symbol cutter)
{
    if (++m_incidentCounts[kind] <= mostIncidents)
        m_catalog.incidents.push_back({kind, record, at, name, detail, cutter});
}

CatalogLocator::Open &CatalogLocator::open(Open::Role role)
{
    Open element;
    element.role = role;
    element.name = symbolOf(m_xml.name());
    element.start = here();
    if (!m_stack.empty()) {
        element.lost = m_stack.back().lost;
        element.field = m_stack.back().field;
    }
    m_stack.push_back(element);
    return m_stack.back();
}

// Keeps only the outermost of elements nested without end: they would take more memory than the file.
void CatalogLocator::foldOpen()
{
    constexpr std::size_t deepest = 100;
    if (m_stack.size() <= deepest || m_stack.back().role != Open::Other
        || m_stack[m_stack.size() - 2].role != Open::Other)
        return;
    m_stack.pop_back();
    ++m_stack.back().inner;
}

void CatalogLocator::close()
{
    if (m_stack.back().inner > 0) {
        --m_stack.back().inner;
        return;
    }
    if (m_stack.back().role == Open::LostRecord)
        finishLostRecord(m_stack.back().lost);
    m_stack.pop_back();
}

// Nothing more happens to a root element; all others are begun as records or skipped.
void CatalogLocator::openOutside()
{
    open(Open::Other);
    if (CCatalogTokenizer::stringToCatalogToken(m_xml.name()) != Section::OVCAT)
        return;
    m_catalog.hasRoot = true;
    if (m_stack.size() > 1)
        note(Incident::NestedRoot, -1, here(), m_stack.back().name);
    seeAttributes(-1);
    foldOpen();
}

void CatalogLocator::seeAttributes(int record)
{
    const QStringList names = m_xml.attributeNames();
    for (const QString &name : names)
        note(Incident::IgnoredAttribute, record, m_stack.back().start, m_stack.back().name, symbolOf(name));
}

void CatalogLocator::seeStrayText(int record)
{
    constexpr quint32 startOfCData = 9; // <![CDATA[
    const QStringRef text = m_xml.text();
    if (m_xml.isWhitespace() || m_stack.empty() || isBlank(text))
        return;
    Position at = m_tokenStart;
    if (m_xml.isCDATA())
        at.column += startOfCData;
    const auto first = std::find_if_not(text.begin(), text.end(), [](QChar c) { return c.isSpace(); });
    for (auto character = text.begin(); character != first; ++character)
        at = *character == QLatin1Char('\n') ? Position{at.line + 1, 1} : Position{at.line, at.column + 1};
    note(Incident::StrayText, record, at, 0, symbolOf(QStringView(text).trimmed()));
}

void CatalogLocator::seeComment()
{
    const QStringRef comment = m_xml.text();
    if (isDirective(comment))
        readDirective(QStringView(comment).trimmed().mid(directiveStart.size()));
}

void CatalogLocator::readDirective(QStringView text)
{
    std::vector<QStringView> words;
    if (text.size() <= longestDirective)
        forEachWord(text, [&words](QStringView word) { words.push_back(word); });
    Directive directive;
    directive.at = directive.end = here();
    directive.isForFile = !words.empty() && words.back() == QLatin1String("*");
    if (directive.isForFile)
        words.pop_back();
    if (words.size() < 2 || words.front() != QLatin1String("off")) {
        note(Incident::BadDirective, -1, directive.at, 0, symbolOf(text.trimmed()));
        return;
    }
    if (m_catalog.directives.size() >= mostIncidents)
        return;
    std::transform(words.begin() + 1, words.end(), std::back_inserter(directive.rules),
                   [this](QStringView word) { return symbolOf(word); });
    m_catalog.directives.push_back(directive);
}

// An element in the root has ended: the directives before it apply up to here.
void CatalogLocator::endDirectives()
{
    for (; m_endedDirectives < m_catalog.directives.size(); ++m_endedDirectives)
        m_catalog.directives[m_endedDirectives].end = here();
}

int CatalogLocator::addRecord(Section kind, LocatedRecord::State state, Symbol name, Position start)
{
    LocatedRecord record;
    record.kind = kind;
    record.state = state;
    record.name = name;
    record.start = start;
    m_catalog.records.push_back(record);
    if (m_progress && ++m_addedRecords % 1024 == 0)
        m_progress();
    return m_catalog.recordCount() - 1;
}

// Lost records without any key are all alike, and millions of them would take more memory than the file.
void CatalogLocator::dropIfNeedless(int record)
{
    const bool isLast = record == m_catalog.recordCount() - 1;
    const bool isKnown = !m_catalog.incidents.empty() && m_catalog.incidents.back().record == record;
    if (isLast && !isKnown && m_catalog.record(record).fieldCount == 0 && ++m_keylessCount > mostIncidents)
        m_catalog.records.pop_back();
}

void CatalogLocator::openInside(int field)
{
    if (m_isRecordTag) {
        m_isRecordTag = false;
        return;
    }
    if (m_stack.back().field >= 0)
        cutBy(QString(QLatin1Char('<') + m_xml.name() + QLatin1Char('>')));
    const Open parent = m_stack.back();
    Open &element = open(field != 0 ? Open::Field : Open::Other);
    if (field != 0) {
        element.token = quint8(field);
        element.field = int(m_stack.size()) - 1;
        seeAttributes(m_record);
        if (parent.role != Open::Record && parent.role != Open::LostRecord)
            note(Incident::NestedField, m_record, element.start, element.name, parent.name);
        m_isStyleTag =
            m_catalog.record(m_record).kind == Section::CATALOG && field == int(CatalogInfoToken::CAT_Style);
    } else if (const Section section = CCatalogTokenizer::stringToCatalogToken(m_xml.name());
               isRecord(section)) {
        openLostRecord(section, m_catalog.record(m_record).kind == Section::CATALOG ? LocatedRecord::Wrapped
                                                                                    : LocatedRecord::Nested);
    } else if (parent.role == Open::LostRecord) {
        openLostKey(m_xml.name());
    } else if (parent.role == Open::Record) {
        note(Incident::UnknownField, m_record, element.start, element.name);
    }
    foldOpen();
}

void CatalogLocator::seeText(int field)
{
    Open &element = m_stack.back();
    if (field != 0)
        addValue(field);
    else if (element.role == Open::LostKey)
        addLostKey();
    else if (element.lost >= 0)
        return; // the record as a whole is reported
    else if (element.field >= 0)
        seeCutText(m_stack[std::size_t(element.field)]);
    else if (element.role == Open::Record)
        seeStrayText(m_record);
}

void CatalogLocator::addValue(int field)
{
    Open &element = m_stack.back();
    element.hasPiece = true;
    // All that comes out of an entity is in one place, and nothing is read ahead there.
    element.pieceEnd = std::max(here(), element.start);
    element.cutter = 0;
    LocatedField value;
    value.token = quint8(field);
    value.start = element.start;
    value.end = element.pieceEnd;
    value.isFromNested = element.lost >= 0;
    const bool isScrambled =
        !m_catalog.isReadable && formatOf(m_catalog.record(m_record).kind, field).isScrambled();
    value.value = isScrambled ? scrambledValue(m_xml.text()) : m_catalog.texts.symbol(m_xml.text());
    m_fields.push_back(value);
}

// The number of the decoded text. Keeps the original, too, if the encoder would not have written it.
Symbol CatalogLocator::scrambledValue(const QStringRef &text)
{
    const QString decoded = m_pool.descrambled(text);
    const int index = int(m_fields.size());
    const bool isScrambled = isHexPairs(text);
    ++m_catalog.scrambledCount;
    if (!isScrambled) {
        ++m_catalog.clearCount;
        m_clearField = m_clearField < 0 ? index : m_clearField;
    }
    // A zero byte alone is how some write an empty text.
    const bool isEmpty = text == QLatin1String("00");
    if (!isScrambled || (!isEmpty && !isWholeText(decoded, text.length() / 2)))
        m_oddTexts.push_back({index, m_catalog.texts.symbol(text)});
    return m_catalog.texts.symbol(decoded);
}

void CatalogLocator::seeCutText(Open &field)
{
    if (m_xml.isWhitespace() || field.isCutReported || isBlank(m_xml.text()))
        return;
    // Only a CDATA section splits a text without another token in between.
    if (m_xml.isCDATA() || field.cutter == 0)
        cutBy(m_xml.isCDATA() ? u"a CDATA section" : u"the text after a CDATA section");
    field.isCutReported = true;
    note(Incident::CutText, m_record, field.hasPiece ? field.pieceEnd : field.start, field.name,
         symbolOf(QStringView(m_xml.text()).trimmed()), field.cutter);
}

// The reader is past the reference, which has two characters more than its name. A text before it ends there;
// the reader was ahead when it delivered that text.
void CatalogLocator::seeEntity()
{
    const int index = m_stack.back().field;
    if (index < 0 || m_stack.back().lost >= 0)
        return;
    Open &field = m_stack[std::size_t(index)];
    if (std::exchange(field.isCutReported, true))
        return;
    if (field.hasPiece && field.cutter == 0) {
        field.pieceEnd = here();
        field.pieceEnd.column -= quint32(m_xml.name().length()) + 2;
        m_fields.back().end = field.pieceEnd;
    }
    note(Incident::UnresolvedEntity, m_record, field.hasPiece ? field.pieceEnd : field.start, field.name,
         symbolOf(m_xml.name()));
}

void CatalogLocator::cutBy(QStringView what)
{
    const int index = m_stack.back().field;
    if (index >= 0 && m_stack[std::size_t(index)].cutter == 0)
        m_stack[std::size_t(index)].cutter = symbolOf(what);
}

// The last of several values of a field counts; of base codes as parents, the first that is not empty.
void CatalogLocator::overruleFields()
{
    const bool isExtension = m_catalog.record(m_record).kind == Section::CHAREXT;
    std::array<LocatedField *, tokenCount> counting{};
    for (LocatedField &field : m_fields) {
        LocatedField *&earlier = counting[field.token];
        const bool hasParent = isExtension && field.token == int(CharacterExtensionToken::CE_BaseCode_FK)
                               && earlier && earlier->value != 0;
        if (hasParent) {
            field.isOverruled = true;
            continue;
        }
        if (earlier)
            earlier->isOverruled = true;
        earlier = &field;
    }
}

// As the reader sets the parent: an extension as parent always, a base code where none is set.
void CatalogLocator::findParent()
{
    const Section kind = m_catalog.record(m_record).kind;
    LocatedField *parent = nullptr;
    for (LocatedField &field : m_fields) {
        const bool isBaseCode =
            kind == Section::CHAREXT && field.token == int(CharacterExtensionToken::CE_BaseCode_FK);
        const bool isOther =
            (kind == Section::CHAREXT && field.token == int(CharacterExtensionToken::CE_CharExt_REF))
            || (kind == Section::BASECODE && field.token == int(BaseCodeToken::BC_Class_FK));
        if (isOther || (isBaseCode && (!parent || parent->value == 0)))
            parent = &field;
    }
    if (parent)
        parent->isParent = true;
}

void CatalogLocator::indexFields(int firstField)
{
    std::array<int, tokenCount> &counting = m_catalog.longRecords[m_record];
    counting.fill(-1);
    for (std::size_t index = 0; index < m_fields.size(); ++index) {
        if (!m_fields[index].isOverruled)
            counting[m_fields[index].token] = firstField + int(index);
    }
}

void CatalogLocator::finishRecord()
{
    overruleFields();
    findParent();
    LocatedRecord &record = m_catalog.records[std::size_t(m_record)];
    record.firstField = int(m_catalog.fields.size());
    record.fieldCount = int(m_fields.size());
    if (m_fields.size() > tokenCount)
        indexFields(record.firstField);
    if (m_clearField >= 0 && m_catalog.firstClearField < 0)
        m_catalog.firstClearField = record.firstField + m_clearField;
    for (const OddScrambledText &odd : m_oddTexts)
        m_catalog.oddScrambledTexts.push_back({record.firstField + odd.field, odd.raw});
    m_catalog.fields.insert(m_catalog.fields.end(), m_fields.begin(), m_fields.end());
    m_recordDepth = 0;
    endDirectives();
}

// What the element is, as far as its start tag shows.
void CatalogLocator::startSkipping()
{
    Open &element = m_stack.back();
    m_wrapper = -1;
    m_skippedName = element.name;
    m_skippedStart = element.start;
    m_skippedKind = Incident::UnknownRecord;
    if (m_stack.size() == 1) {
        m_skippedKind = Incident::UnknownRoot;
    } else if (CatalogFormat::field(QStringView(m_xml.name()))) {
        m_skippedKind = Incident::FieldOutsideRecord;
    } else if (nearRecord() != Section::Unknown) {
        m_wrapper = addRecord(m_nearRecord, LocatedRecord::Misspelt, element.name, element.start);
        element.role = Open::LostRecord;
        element.lost = m_wrapper;
    }
}

// Of the skipped element. The same one often comes many times.
Section CatalogLocator::nearRecord()
{
    if (std::exchange(m_unknownName, m_skippedName) != m_skippedName)
        m_nearRecord = recordNear(m_xml.name());
    return m_nearRecord;
}

void CatalogLocator::openSkipped()
{
    const bool isInLostRecord = m_stack.back().role == Open::LostRecord;
    const Section section = CCatalogTokenizer::stringToCatalogToken(m_xml.name());
    open(Open::Other);
    const bool isKnown = m_skippedKind != Incident::UnknownRoot;
    if (isKnown && isRecord(section))
        openLostRecord(section, LocatedRecord::Wrapped);
    else if (isKnown && isInLostRecord)
        openLostKey(m_xml.name());
    foldOpen();
}

// A misspelt record with records inside is a wrapper.
void CatalogLocator::openLostRecord(Section kind, LocatedRecord::State state)
{
    if (m_wrapper < 0)
        m_wrapper = addRecord(Section::Unknown, LocatedRecord::Wrapper, m_skippedName, m_skippedStart);
    LocatedRecord &wrapper = m_catalog.records[std::size_t(m_wrapper)];
    if (wrapper.state == LocatedRecord::Misspelt) {
        wrapper.state = LocatedRecord::Wrapper;
        wrapper.kind = Section::Unknown;
    }
    Open &element = m_stack.back();
    element.role = Open::LostRecord;
    element.lost = addRecord(kind, state, element.name, element.start);
    m_catalog.records.back().outer = m_wrapper;
}

void CatalogLocator::openLostKey(QStringView name)
{
    Open &element = m_stack.back();
    const Section kind = m_catalog.record(element.lost).kind;
    if (kind == Section::Unknown)
        return;
    for (const CatalogFormat::Field &field : CatalogFormat::record(int(kind)).fields) {
        const bool isKey = field.keySpace != CatalogFormat::KeySpace::None || field.names.size() > 0;
        if (field.name == name && isKey) {
            element.role = Open::LostKey;
            element.token = quint8(field.token);
        }
    }
}

void CatalogLocator::addLostKey()
{
    Open &element = m_stack.back();
    if (std::exchange(element.hasPiece, true))
        return;
    const bool isScrambled =
        !m_catalog.isReadable && formatOf(m_catalog.record(element.lost).kind, element.token).isScrambled();
    LocatedField key;
    key.token = element.token;
    key.value = isScrambled ? m_catalog.texts.symbol(m_pool.descrambled(m_xml.text()))
                            : m_catalog.texts.symbol(m_xml.text());
    key.start = element.start;
    key.end = here();
    // Those of the record are at the end.
    const auto other = std::find_if(m_lostKeys.rbegin(), m_lostKeys.rend(), [&element](const auto &known) {
        return known.first != element.lost || known.second.token == element.token;
    });
    if (other != m_lostKeys.rend() && other->first == element.lost)
        other->second = key;
    else
        m_lostKeys.push_back({element.lost, key});
}

// The keys of records inside have been taken away already: those at the end are of this one.
void CatalogLocator::finishLostRecord(int index)
{
    LocatedRecord &record = m_catalog.records[std::size_t(index)];
    record.firstField = int(m_catalog.fields.size());
    for (; !m_lostKeys.empty() && m_lostKeys.back().first == index; m_lostKeys.pop_back()) {
        if (record.kind == Section::Unknown)
            continue;
        m_catalog.fields.push_back(m_lostKeys.back().second);
        ++record.fieldCount;
    }
    dropIfNeedless(index);
}

} // namespace Orvida::Checking
