#include "tools/FieldTexts.h"

#include <QRegularExpression>
#include <QXmlStreamReader>

#include <algorithm>

namespace Orvida::Tools {

namespace {

using Catalogs::CatalogFormat;

const QLatin1String cdataStart("<![CDATA[");
const QLatin1String cdataEnd("]]>");

// A reference that stands for more than one character.
bool refersToEntity(const QString &xml)
{
    static const QRegularExpression pattern(QStringLiteral("&(?!#|(?:amp|lt|gt|quot|apos);)"));
    return xml.contains(pattern);
}

class Finder
{
public:
    Finder(const QByteArray &document, const QString &text, WantedTexts wanted)
        : m_wanted(wanted), m_text(text), m_reader(document), m_places(text)
    {
    }

    FieldTexts run();

private:
    [[nodiscard]] bool readNext();
    void handleToken();
    void startElement();
    void endElement();
    void readText();
    void placeText(FieldText &text);
    void setObstacle(FieldText::Obstacle obstacle);

    int place() const { return static_cast<int>(m_places.characterOffset()); }

    const WantedTexts m_wanted;
    const QString &m_text;
    QXmlStreamReader m_reader; // of the bytes: what they say
    QXmlStreamReader m_places; // of the text: where it is
    FieldTexts m_found;
    // By open element, the index of its text; -1 when it is no field that is wanted.
    QVector<int> m_open;
    // The element in the root that is open, and how many there were.
    const CatalogFormat::Record *m_record = nullptr;
    int m_records = 0;
    // Those of them that have no obstacle yet, so that many nested fields do not take quadratic time.
    QVector<int> m_untroubled;
    // The text that the next piece belongs to; -1 for none.
    int m_waiting = -1;
    int m_pieceStart = 0;
};

FieldTexts Finder::run()
{
    while (readNext())
        handleToken();
    const auto isEmpty = [](const FieldText &text) {
        return text.value.isEmpty() && text.obstacle == FieldText::None;
    };
    QVector<FieldText> &texts = m_found.texts;
    texts.erase(std::remove_if(texts.begin(), texts.end(), isEmpty), texts.end());
    return m_found;
}

// Moves both readers on by one token; false at the end, and when their tokens differ.
bool Finder::readNext()
{
    const auto token = m_reader.readNext();
    if (m_reader.hasError()) {
        m_found.errorText = m_reader.errorString();
        m_found.errorPosition = {m_reader.lineNumber(), m_reader.columnNumber() + 1};
        return false;
    }
    m_found.isTextOfDocument = m_places.readNext() == token && m_places.name() == m_reader.name()
                               && m_places.text() == m_reader.text();
    return m_found.isTextOfDocument && token != QXmlStreamReader::EndDocument;
}

void Finder::handleToken()
{
    switch (m_reader.tokenType()) {
    case QXmlStreamReader::StartElement: startElement(); break;
    case QXmlStreamReader::EndElement: endElement(); break;
    case QXmlStreamReader::Characters: readText(); break;
    case QXmlStreamReader::EntityReference: setObstacle(FieldText::Entity); break;
    default: break;
    }
    m_pieceStart = place();
}

void Finder::startElement()
{
    setObstacle(FieldText::NestedElement);
    m_waiting = -1;
    if (m_open.size() == 1) {
        m_record = CatalogFormat::record(m_reader.name());
        ++m_records;
    }
    const CatalogFormat::Field *field = CatalogFormat::field(m_reader.name());
    if (field && (m_wanted == WantedTexts::All || field->isScrambled())) {
        FieldText text;
        text.field = field;
        text.record = m_records;
        text.isDirect = m_open.size() == 2 && CatalogFormat::recordOf(*field) == m_record;
        text.position = {m_reader.lineNumber(), m_reader.columnNumber() + 1};
        if (m_text.at(place() - 1) != QLatin1Char('>'))
            text.obstacle = FieldText::InsideEntity;
        m_waiting = m_found.texts.size();
        m_found.texts.append(text);
        if (text.obstacle == FieldText::None)
            m_untroubled.append(m_waiting);
    }
    m_open.append(m_waiting);
}

void Finder::endElement()
{
    const int closed = m_open.takeLast();
    if (!m_untroubled.isEmpty() && m_untroubled.last() == closed)
        m_untroubled.removeLast();
    m_waiting = -1;
}

void Finder::readText()
{
    if (m_waiting < 0) {
        if (!m_reader.isWhitespace())
            setObstacle(FieldText::CutText);
        return;
    }
    FieldText &text = m_found.texts[m_waiting];
    text.value = QString(m_reader.text().constData(), m_reader.text().size());
    if (text.obstacle != FieldText::InsideEntity)
        placeText(text);
    m_waiting = -1;
}

void Finder::placeText(FieldText &text)
{
    text.isCData = m_text.midRef(m_pieceStart).startsWith(cdataStart);
    if (text.isCData) {
        text.begin = m_pieceStart + cdataStart.size();
        text.end = place() - cdataEnd.size();
        return;
    }
    text.begin = m_pieceStart;
    text.end = m_text.indexOf(QLatin1Char('<'), m_pieceStart);
    if (refersToEntity(m_text.mid(text.begin, text.end - text.begin)))
        setObstacle(FieldText::Entity);
}

// Of every open field that has none yet.
void Finder::setObstacle(FieldText::Obstacle obstacle)
{
    for (const int index : qAsConst(m_untroubled))
        m_found.texts[index].obstacle = obstacle;
    m_untroubled.clear();
}

} // namespace

QLatin1String wordsOf(FieldText::Obstacle obstacle)
{
    static const char *const words[] = {
        "",
        "a load takes only the first piece of its text",
        "there is an element in it",
        "it refers to an entity that the document declares",
        "it is part of an entity that the document declares",
    };
    return QLatin1String(words[obstacle]);
}

FieldTexts findFieldTexts(const QByteArray &document, const QString &text, WantedTexts wanted)
{
    return Finder(document, text, wanted).run();
}

std::optional<FileFailure> failureOf(const FieldTexts &texts, const TextRewriter &document)
{
    if (!texts.errorText.isEmpty()) {
        Catalogs::CatalogReadFailure failure;
        failure.reason = Catalogs::CatalogReadFailure::NotWellFormed;
        failure.line = texts.errorPosition.line;
        failure.column = texts.errorPosition.column;
        failure.detail = texts.errorText;
        return failureOf(failure);
    }
    // Whether its parts can be replaced shows when the rest is kept.
    if (!texts.isTextOfDocument || document.result().isNull())
        return FileFailure{{},
                           QStringLiteral("texts cannot be replaced in the encoding of the file"),
                           QStringLiteral("save it as UTF-8")};
    return std::nullopt;
}

} // namespace Orvida::Tools
