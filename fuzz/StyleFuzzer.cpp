// Fuzz target: any bytes as a catalog file. Compares its style with a plain search for it.
#include "catalogs/reading/CatalogXMLParser.h"
#include "fuzz/MemoryFile.h"

#include <QXmlStreamReader>

namespace {

// Without files, tokens and tables of names.
qint64 expectedStyle(const QByteArray &content)
{
    QXmlStreamReader reader(content);
    bool isInCatalog = false;
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QString name = reader.name().toString();
        if (isInCatalog && name == QLatin1String("CAT_Style")) {
            // Whatever comes next, even the text of a comment.
            reader.readNext();
            return reader.text().toString().toLongLong();
        }
        if (!isInCatalog && name == QLatin1String("CATALOG"))
            isInCatalog = true;
        else if (isInCatalog || (name != QLatin1String("OVCAT") && name != QLatin1String("OVCat")))
            reader.skipCurrentElement();
    }
    return 0;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const qint64 style =
        Orvida::Catalogs::CatalogXMLParser().readCatalogStyleFlag(Orvida::Fuzz::pathOfBytes(data, size));
    const qint64 expected =
        expectedStyle(QByteArray(reinterpret_cast<const char *>(data), static_cast<int>(size)));
    if (style != expected)
        Orvida::Fuzz::stopAt(QStringLiteral("style %1, not %2").arg(style).arg(expected));
    return 0;
}
