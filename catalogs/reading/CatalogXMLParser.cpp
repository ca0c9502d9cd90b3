#include "catalogs/reading/CatalogXMLParser.h"

#include "catalogs/reading/CCatalogTokenizer.h"
#include "catalogs/reading/FieldConversion_p.h"
#include "catalogs/reading/FileOrder_p.h"
#include "catalogs/reading/RecordReader_p.h"
#include "catalogs/reading/TextPool_p.h"

#include <QFile>
#include <QVector>
#include <QXmlStreamReader>

namespace Orvida::Catalogs {

struct CatalogXMLParser::Private
{
    [[nodiscard]] bool openFile(const QString &fileName);
    void describeUnopenedFile();
    void describeBrokenInput();

    // The reader reads from the file: it is declared after it, so that it is destroyed first.
    QFile file;
    QXmlStreamReader reader;
    TextPool texts;
    QVector<QString> parameterExtensionKeys;
    CatalogReadFailure failure;
};

CatalogXMLParser::CatalogXMLParser() : m_private(std::make_unique<Private>()) {}

CatalogXMLParser::~CatalogXMLParser() = default;

bool CatalogXMLParser::readFile(const QString &fileName, QHash<QString, QSharedPointer<CatalogItem>> &items)
{
    m_private->failure = CatalogReadFailure();
    if (!m_private->openFile(fileName)) {
        m_private->describeUnopenedFile();
        return false;
    }
    const RecordStore store{*this, items, m_private->parameterExtensionKeys, m_private->texts};
    if (RecordReader(m_private->reader, store, m_private->failure).readDocument()
        && !m_private->reader.hasError())
        return true;
    if (m_private->failure.reason == CatalogReadFailure::None)
        m_private->describeBrokenInput();
    return false;
}

qint64 CatalogXMLParser::readCatalogStyleFlag(const QString &fileName)
{
    qint64 style = 0;
    QXmlStreamReader &reader = m_private->reader;
    if (m_private->openFile(fileName)) {
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
    reader.clear();
    m_private->file.close();
    return style;
}

// Continues after the end of the catalog information, through the rest of the document: that only costs
// time in a file without a style.
qint64 CatalogXMLParser::readCatalogStyleFlagFromCatalogInfo()
{
    QXmlStreamReader &reader = m_private->reader;
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

bool CatalogXMLParser::Private::openFile(const QString &fileName)
{
    reader.clear();
    file.close();
    file.unsetError();
    // Answered here, because Qt would print a warning for no name and cut a name at a zero character.
    if (fileName.isEmpty() || fileName.contains(QChar(QChar::Null)))
        return false;
    file.setFileName(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    reader.setDevice(&file);
    return true;
}

void CatalogXMLParser::Private::describeUnopenedFile()
{
    const bool wasTried = file.error() != QFileDevice::NoError;
    failure.reason = CatalogReadFailure::FileNotRead;
    failure.detail = wasTried ? file.errorString() : QStringLiteral("No such file or directory");
}

void CatalogXMLParser::Private::describeBrokenInput()
{
    const bool isFileError = file.error() != QFileDevice::NoError;
    failure.reason = isFileError ? CatalogReadFailure::FileNotRead : CatalogReadFailure::NotWellFormed;
    failure.detail = isFileError ? file.errorString() : reader.errorString();
    failure.line = reader.lineNumber();
    failure.column = reader.columnNumber() + 1;
}

const QVector<QString> &parameterExtensionsInFileOrder(const CatalogXMLParser &parser)
{
    return parser.m_private->parameterExtensionKeys;
}

} // namespace Orvida::Catalogs
