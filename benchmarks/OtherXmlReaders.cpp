#include "benchmarks/OtherXmlReaders.h"

namespace Orvida::Benchmarks {

QStringRef Utf16Buffer::converted(std::string_view utf8)
{
    const auto length = static_cast<int>(utf8.size());
    if (m_characters.size() <= length)
        m_characters.resize(2 * length + 64);
    QChar *to = m_characters.data();
    uchar seen = 0;
    for (int i = 0; i < length; ++i) {
        const auto byte = static_cast<uchar>(utf8[static_cast<std::size_t>(i)]);
        to[i] = QLatin1Char(static_cast<char>(byte));
        seen |= byte;
    }
    if (seen < 0x80)
        return {&m_characters, 0, length};
    m_characters = QString::fromUtf8(utf8.data(), length);
    return QStringRef(&m_characters);
}

PugixmlReader::PugixmlReader(const QString &path)
    : m_isParsed(m_document.load_file(QFile::encodeName(path).constData()))
{
}

PugixmlReader::TokenType PugixmlReader::readNext()
{
    if (!m_isParsed)
        return m_type = QXmlStreamReader::Invalid;
    const bool isInside = m_type == QXmlStreamReader::StartElement;
    pugi::xml_node next;
    if (m_type == QXmlStreamReader::NoToken)
        next = m_document.first_child();
    else
        next = isInside ? m_node.first_child() : m_node.next_sibling();
    if (next) {
        m_node = next;
        const bool isElement = m_node.type() == pugi::node_element;
        return m_type = isElement ? QXmlStreamReader::StartElement : QXmlStreamReader::Characters;
    }
    if (!isInside)
        m_node = m_node.parent();
    const bool isElement = m_node.type() == pugi::node_element;
    return m_type = isElement ? QXmlStreamReader::EndElement : QXmlStreamReader::EndDocument;
}

SaxReader::SaxReader(const QString &path) : m_file(path), m_block(1 << 16)
{
    xmlSAXHandler callbacks = handler();
    m_parser.reset(xmlCreatePushParserCtxt(&callbacks, this, nullptr, 0, nullptr));
    if (!m_parser || !m_file.open(QIODevice::ReadOnly))
        m_token.type = QXmlStreamReader::Invalid;
}

xmlSAXHandler SaxReader::handler()
{
    xmlSAXHandler result{};
    result.initialized = XML_SAX2_MAGIC;
    result.startElementNs = [](void *self, const xmlChar *name, const xmlChar *, const xmlChar *, int,
                               const xmlChar **, int, int, const xmlChar **) {
        static_cast<SaxReader *>(self)->m_queue.push_back(
            {QXmlStreamReader::StartElement, reinterpret_cast<const char *>(name), 0, 0});
    };
    result.endElementNs = [](void *self, const xmlChar *name, const xmlChar *, const xmlChar *) {
        static_cast<SaxReader *>(self)->m_queue.push_back(
            {QXmlStreamReader::EndElement, reinterpret_cast<const char *>(name), 0, 0});
    };
    result.characters = [](void *self, const xmlChar *text, int length) {
        static_cast<SaxReader *>(self)->addText(
            {reinterpret_cast<const char *>(text), static_cast<std::size_t>(length)});
    };
    result.ignorableWhitespace = result.characters;
    result.cdataBlock = result.characters;
    return result;
}

// The parser reports a text in pieces: at references, and where a block ends.
void SaxReader::addText(std::string_view piece)
{
    if (m_queue.empty() || m_queue.back().type != QXmlStreamReader::Characters)
        m_queue.push_back({QXmlStreamReader::Characters, "", m_texts.size(), 0});
    m_texts.append(piece);
    m_queue.back().length += piece.size();
}

// A text at the end of the queue may continue in the next block.
bool SaxReader::hasWholeToken() const
{
    const std::size_t count = m_queue.size() - m_next;
    return count > 1 || (count == 1 && (m_isEnded || m_queue.back().type != QXmlStreamReader::Characters));
}

void SaxReader::parseBlock()
{
    if (m_next < m_queue.size()) {
        Token rest = m_queue.back();
        m_texts = m_texts.substr(rest.begin);
        rest.begin = 0;
        m_queue.assign(1, rest);
    } else {
        m_queue.clear();
        m_texts.clear();
    }
    m_next = 0;
    const qint64 size = m_file.read(m_block.data(), static_cast<qint64>(m_block.size()));
    m_isEnded = size <= 0;
    const bool isGood =
        size >= 0 && xmlParseChunk(m_parser.get(), m_block.data(), static_cast<int>(size), m_isEnded) == 0;
    if (!isGood || m_isEnded) {
        m_isEnded = true;
        m_queue.push_back({isGood ? QXmlStreamReader::EndDocument : QXmlStreamReader::Invalid, "", 0, 0});
    }
}

SaxReader::TokenType SaxReader::readNext()
{
    if (m_token.type == QXmlStreamReader::Invalid || m_token.type == QXmlStreamReader::EndDocument)
        return m_token.type;
    while (!hasWholeToken())
        parseBlock();
    m_token = m_queue[m_next++];
    return m_token.type;
}

void SaxReader::skipCurrentElement()
{
    for (int depth = 1; depth > 0;) {
        switch (readNext()) {
        case QXmlStreamReader::StartElement: ++depth; break;
        case QXmlStreamReader::EndElement: --depth; break;
        case QXmlStreamReader::Invalid:
        case QXmlStreamReader::EndDocument: return;
        default: break;
        }
    }
}

} // namespace Orvida::Benchmarks
