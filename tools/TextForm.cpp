#include "tools/TextForm.h"

#include "catalogs/reading/ScrambledText.h"
#include "tools/XmlText.h"

#include <QXmlStreamReader>

#include <algorithm>

namespace Orvida::Tools {

namespace {

using Catalogs::CatalogFormat;
using Catalogs::ScrambledText;

bool isHexDigit(QChar c)
{
    const ushort u = c.unicode();
    return (u >= '0' && u <= '9') || (u >= 'A' && u <= 'F') || (u >= 'a' && u <= 'f');
}

bool isHex(const QStringRef &text)
{
    return std::all_of(text.cbegin(), text.cend(), isHexDigit);
}

// Counts the texts of each form. White space alone has none.
class FormCount
{
public:
    void add(const QStringRef &text)
    {
        if (text.trimmed().isEmpty())
            return;
        ++m_texts;
        m_scrambled += text.size() % 2 == 0 && isHex(text);
    }

    std::optional<TextForm> form() const
    {
        if (m_scrambled > m_texts - m_scrambled)
            return TextForm::Scrambled;
        if (m_scrambled < m_texts - m_scrambled)
            return TextForm::Readable;
        return std::nullopt;
    }

private:
    int m_texts = 0;
    int m_scrambled = 0;
};

// Why scrambling the readable text would not give the bytes of the file again; empty when it would.
QString lossOf(const FieldText &field, const QString &xml, const QString &readable, bool takesLowerCase)
{
    if (!isHex(QStringRef(&field.value)))
        return QStringLiteral("it is no scrambled text");
    if (field.value.size() % 2 != 0)
        return QStringLiteral("a digit is missing");
    const QString upperCase = field.value.toUpper();
    if (ScrambledText::encode(readable) != upperCase)
        return QStringLiteral("its bytes are not those of a text");
    if (!canBeInXml(readable))
        return QStringLiteral("it stands for characters that XML cannot hold");
    if (!takesLowerCase && (field.value != upperCase || xml != field.value))
        return QStringLiteral("it is not written in digits and upper-case letters alone");
    return QString();
}

// By obstacle.
const char *const remedies[] = {
    "",
    "write the text in one piece, or use --force to change only what a load takes",
    "end the field before the element, or use --force to change only what a load takes",
    "write what the entity stands for",
    "write what the entity stands for",
};

// Shorter ones may be words or codes.
constexpr int shortestTellingText = 6;

// Whether `text` is in the normal form of scrambled texts, and stands for a text that can be seen.
bool seemsScrambled(const QString &text)
{
    if (text.size() < shortestTellingText || text.size() % 2 != 0 || !isHex(QStringRef(&text)))
        return false;
    const QString readable = ScrambledText::decode(QStringRef(&text));
    const QVector<uint> characters = readable.toUcs4();
    return ScrambledText::encode(readable) == text
           && std::all_of(characters.cbegin(), characters.cend(), [](uint c) { return QChar::isPrint(c); });
}

} // namespace

std::optional<TextForm> formOf(QIODevice &file)
{
    FormCount count;
    QXmlStreamReader reader(&file);
    bool isScrambledField = false;
    while (reader.readNext() != QXmlStreamReader::Invalid && !reader.isEndDocument()) {
        if (reader.isStartElement())
            isScrambledField = CatalogFormat::isScrambled(reader.name());
        if (reader.isCharacters() && isScrambledField)
            count.add(reader.text());
        if (reader.isCharacters() || reader.isEndElement())
            isScrambledField = false;
    }
    return count.form();
}

FormChange::FormChange(const QByteArray &document)
    : m_rewriter(document),
      m_texts(findFieldTexts(document, m_rewriter.text())),
      m_failure(failureOf(m_texts, m_rewriter))
{
}

std::optional<TextForm> FormChange::form() const
{
    FormCount count;
    for (const FieldText &field : m_texts.texts)
        count.add(QStringRef(&field.value));
    return count.form();
}

QVector<FormChange::Note> FormChange::obstacles(FieldText::Obstacle tolerated) const
{
    QVector<Note> notes;
    for (const FieldText &field : m_texts.texts) {
        if (field.obstacle > tolerated)
            notes.append({field.position,
                          field.field->name + QLatin1String(" cannot be changed: ") + wordsOf(field.obstacle),
                          QLatin1String(remedies[field.obstacle])});
    }
    return notes;
}

QByteArray FormChange::scrambled() const
{
    TextRewriter rewriter = m_rewriter;
    for (const FieldText &field : m_texts.texts) {
        if (field.end != field.begin)
            rewriter.replace(field.begin, field.end, ScrambledText::encode(field.value));
    }
    return rewriter.result();
}

QVector<FormChange::Note> FormChange::scrambledTexts() const
{
    QVector<Note> notes;
    for (const FieldText &field : m_texts.texts) {
        if (seemsScrambled(field.value))
            notes.append({field.position,
                          QStringLiteral("%1 %2 is scrambled already; now it is scrambled twice")
                              .arg(field.field->name, quoted(field.value)),
                          QStringLiteral("write it in the clear: ")
                              + quoted(ScrambledText::decode(QStringRef(&field.value)))});
    }
    return notes;
}

QByteArray FormChange::unscrambled(bool takesLowerCase, QVector<Note> &left) const
{
    TextRewriter rewriter = m_rewriter;
    for (const FieldText &field : m_texts.texts) {
        if (field.end == field.begin)
            continue;
        const QString readable = ScrambledText::decode(QStringRef(&field.value));
        const QString xml = rewriter.text().mid(field.begin, field.end - field.begin);
        QString loss = lossOf(field, xml, readable, takesLowerCase);
        if (loss.isEmpty() && field.isCData && !fitsIntoCData(readable, rewriter))
            loss = QStringLiteral("the CDATA section cannot hold it");
        if (loss.isEmpty())
            rewriter.replace(field.begin, field.end, field.isCData ? readable : xmlText(readable, rewriter));
        else
            left.append({field.position, QStringLiteral("%1 %2 is left as it is: %3")
                                             .arg(field.field->name, quoted(field.value), loss)});
    }
    return rewriter.result();
}

} // namespace Orvida::Tools
