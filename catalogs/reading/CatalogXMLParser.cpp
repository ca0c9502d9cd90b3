#include "catalogs/reading/CatalogXMLParser.h"

#include "catalogs/reading/CCatalogTokenizer.h"
#include "catalogs/reading/FieldConversion_p.h"
#include "catalogs/reading/FileOrder_p.h"
#include "catalogs/reading/RecordReader_p.h"
#include "catalogs/reading/TextPool_p.h"
#include "catalogs/reading/XmlInput_p.h"

#include <QVector>

namespace Orvida::Catalogs {

struct CatalogXMLParser::Private
{
    XmlInput input;
    TextPool texts;
    QVector<QString> parameterExtensionKeys;
    CatalogReadFailure failure;
};

CatalogXMLParser::CatalogXMLParser() : m_private(std::make_unique<Private>()) {}

CatalogXMLParser::~CatalogXMLParser() = default;

bool CatalogXMLParser::readFile(const QString &fileName, QHash<QString, QSharedPointer<CatalogItem>> &items)
{
    m_private->failure = CatalogReadFailure();
    XmlInput &input = m_private->input;
    if (!input.open(fileName)) {
        m_private->failure = input.failureToOpen();
        return false;
    }
    const RecordStore store{*this, items, m_private->parameterExtensionKeys, m_private->texts};
    if (RecordReader(input.reader, store, m_private->failure).readDocument() && !input.reader.hasError())
        return true;
    if (m_private->failure.reason == CatalogReadFailure::None)
        m_private->failure = input.failureToRead();
    return false;
}

qint64 CatalogXMLParser::readCatalogStyleFlag(const QString &fileName)
{
    qint64 style = 0;
    QXmlStreamReader &reader = m_private->input.reader;
    if (m_private->input.open(fileName)) {
        for (auto token = reader.readNext(); !isLast(token); token = reader.readNext()) {
            if (token != QXmlStreamReader::StartElement)
                continue;
            const auto section = CCatalogTokenizer::stringToCatalogToken(reader.name());
            if (section == CCatalogTokenizer::CatalogToken::CATALOG) {
                style = readCatalogStyleFlagFromCatalogInfo();
                break;
            }
            if (section != CCatalogTokenizer::CatalogToken::OVCAT)
                reader.skipCurrentElement();
        }
    }
    m_private->input.close();
    return style;
}

// Continues after the end of the catalog information, through the rest of the document: that only costs
// time in a file without a style.
qint64 CatalogXMLParser::readCatalogStyleFlagFromCatalogInfo()
{
    QXmlStreamReader &reader = m_private->input.reader;
    for (auto token = reader.readNext(); !isLast(token); token = reader.readNext()) {
        if (token != QXmlStreamReader::StartElement)
            continue;
        if (CCatalogTokenizer::stringToCatalogInfoToken(reader.name())
            == CCatalogTokenizer::CatalogInfoToken::CAT_Style) {
            reader.readNext();
            return toInt64(reader.text());
        }
        reader.skipCurrentElement();
    }
    return 0;
}

const CatalogReadFailure &CatalogXMLParser::failure() const
{
    return m_private->failure;
}

const QVector<QString> &parameterExtensionsInFileOrder(const CatalogXMLParser &parser)
{
    return parser.m_private->parameterExtensionKeys;
}

} // namespace Orvida::Catalogs
