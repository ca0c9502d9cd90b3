#include "tools/CatalogScrambler.h"

#include "catalogs/reading/ScrambledText.h"

#include <QSet>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace Orvida::Tools {

namespace {

// The fields of the catalog format whose texts are scrambled. No name stands in two kinds of records.
bool isScrambledField(const QString &name)
{
    static const QSet<QString> names = {
        QStringLiteral("COL_Column_ID"), QStringLiteral("COL_Caption"),  QStringLiteral("LC_Class_ID"),
        QStringLiteral("LC_Caption"),    QStringLiteral("LIST_Caption"), QStringLiteral("CLASS_Item"),
        QStringLiteral("BC_Item"),       QStringLiteral("BC_Code"),      QStringLiteral("BC_ObsText"),
        QStringLiteral("CE_Item"),       QStringLiteral("CE_Code"),      QStringLiteral("CE_ObsText"),
        QStringLiteral("PARAM_Caption"), QStringLiteral("PARAM_Prefix"), QStringLiteral("PARAM_Suffix"),
    };
    return names.contains(name);
}

} // namespace

bool CatalogScrambler::scramble(QIODevice &input, QIODevice &output)
{
    QXmlStreamReader reader(&input);
    QXmlStreamWriter writer(&output);
    bool isScrambled = false;
    while (!reader.atEnd() && !reader.hasError()) {
        reader.readNext();
        if (reader.hasError())
            break;
        if (reader.isStartElement())
            isScrambled = isScrambledField(reader.name().toString());
        if (reader.isEndElement())
            isScrambled = false;
        if (reader.isCharacters() && isScrambled)
            writer.writeCharacters(Catalogs::ScrambledText::encode(reader.text().toString()));
        else
            writer.writeCurrentToken(reader);
    }
    if (reader.hasError())
        m_errorText = QStringLiteral("%1:%2: %3")
                          .arg(reader.lineNumber())
                          .arg(reader.columnNumber() + 1)
                          .arg(reader.errorString());
    else if (writer.hasError())
        m_errorText = output.errorString();
    return m_errorText.isEmpty();
}

} // namespace Orvida::Tools
