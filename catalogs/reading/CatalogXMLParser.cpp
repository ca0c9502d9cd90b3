#include "catalogs/reading/CatalogXMLParser.h"

#include "catalogs/reading/CCatalogTokenizer.h"
#include "catalogs/reading/FieldConversion_p.h"
#include "catalogs/reading/FileOrder_p.h"
#include "catalogs/reading/PlainXmlScanner_p.h"
#include "catalogs/reading/RecordReader_p.h"
#include "catalogs/reading/TextPool_p.h"
#include "catalogs/reading/XmlInput_p.h"

#include <QVector>

#include <array>
#include <string_view>

namespace Orvida::Catalogs {

namespace {

// A file is read twice when it is plain, and up to here when it is not. A larger one may be read from the
// disk each time.
constexpr qint64 largestPlainFile = Q_INT64_C(1) << 30;

} // namespace

struct Q_DECL_HIDDEN CatalogXMLParser::Private
{
    [[nodiscard]] bool isPlain();
    [[nodiscard]] bool readPlain(const RecordStore &store);

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
    if (m_private->isPlain())
        return m_private->readPlain(store);
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

// Finds out whether the scanner can read the whole file; the file is at its start again then.
bool CatalogXMLParser::Private::isPlain()
{
    if (input.file.isSequential() || input.file.size() > largestPlainFile)
        return false;
    // Looks for CDATA sections and processing instructions first, the usual reasons why a file that starts
    // plain does not stay so: a search costs next to nothing, a scan in vain a fifteenth of a load. The
    // declaration, and what the end of a block cuts, are left to the scanner.
    constexpr std::size_t declaration = 128;
    std::array<char, PlainXmlScanner::usualBlock> block;
    bool isPlain = true;
    for (qint64 count = 0; isPlain && (count = input.file.read(block.data(), block.size())) > 0;) {
        const std::string_view bytes(block.data(), static_cast<std::size_t>(count));
        isPlain = bytes.find("![") == std::string_view::npos
                  && bytes.find("?>", declaration) == std::string_view::npos;
    }
    if (isPlain && input.file.seek(0)) {
        PlainXmlScanner scanner(input.file, PlainXmlScanner::usualBlock, false);
        scanner.skipCurrentElement();
        isPlain = !scanner.hasError();
    }
    // Errors are for the pass that reads the records.
    input.file.unsetError();
    return input.file.seek(0) && isPlain;
}

bool CatalogXMLParser::Private::readPlain(const RecordStore &store)
{
    PlainXmlScanner scanner(input.file);
    if (RecordReader(scanner, store, failure).readDocument() && !scanner.hasError())
        return true;
    if (failure.reason != CatalogReadFailure::RecordRefused) {
        failure.reason = CatalogReadFailure::FileNotRead;
        failure.detail = input.file.error() == QFileDevice::NoError
                             ? QStringLiteral("the file changed while it was read")
                             : input.file.errorString();
        return false;
    }
    // In place of a line, the scanner gave the number of a token: the other reader knows the line.
    input.file.seek(0);
    for (qint64 token = 0; token < failure.line && !isLast(input.reader.readNext()); ++token) {
    }
    failure.line = input.reader.lineNumber();
    failure.column = input.reader.columnNumber() + 1;
    return false;
}

const QVector<QString> &parameterExtensionsInFileOrder(const CatalogXMLParser &parser)
{
    return parser.m_private->parameterExtensionKeys;
}

} // namespace Orvida::Catalogs
