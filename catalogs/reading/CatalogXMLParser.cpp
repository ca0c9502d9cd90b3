#include "catalogs/reading/CatalogXMLParser.h"

#include "catalogs/reading/CCatalogTokenizer.h"
#include "catalogs/reading/FieldConversion_p.h"
#include "catalogs/reading/FileOrder_p.h"
#include "catalogs/reading/PlainXmlScanner_p.h"
#include "catalogs/reading/RecordReader_p.h"
#include "catalogs/reading/TextPool_p.h"
#include "catalogs/reading/XmlInput_p.h"

#include <QPair>
#include <QVector>

#include <sys/stat.h>

namespace Orvida::Catalogs {

namespace {

// A file is read twice when it is plain, and up to here when it is not. A larger one may be read from the
// disk each time.
constexpr qint64 largestPlainFile = Q_INT64_C(1) << 30;

// Whether the open file can be read again from its start: pipes and devices cannot.
bool isRegular(const QFile &file)
{
    struct stat status;
    return fstat(file.handle(), &status) == 0 && S_ISREG(status.st_mode);
}

} // namespace

struct CatalogXMLParser::Private
{
    [[nodiscard]] bool isPlain();
    [[nodiscard]] bool readPlain(const RecordStore &store);
    void findRefusedRecord(qint64 endToken);

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

// Finds out by a first pass whether the scanner can read the whole file; the file is at its start again then.
bool CatalogXMLParser::Private::isPlain()
{
    if (!isRegular(input.file) || input.file.size() > largestPlainFile)
        return false;
    PlainXmlScanner scanner(input.file);
    while (!isLast(scanner.readNext())) {
    }
    // Errors are for the pass that reads the records.
    input.file.unsetError();
    return input.file.seek(0) && !scanner.hasError();
}

bool CatalogXMLParser::Private::readPlain(const RecordStore &store)
{
    PlainXmlScanner scanner(input.file);
    const bool isAccepted = RecordReader(scanner, store, failure).readDocument();
    if (isAccepted && !scanner.hasError())
        return true;
    if (failure.reason == CatalogReadFailure::RecordRefused) {
        findRefusedRecord(scanner.tokenCount());
        return false;
    }
    failure.reason = CatalogReadFailure::FileNotRead;
    failure.detail = input.file.error() != QFileDevice::NoError
                         ? input.file.errorString()
                         : QStringLiteral("the file changed while it was read");
    return false;
}

// The scanner does not know places. The refused record ends with the token of number `endToken`, and begins
// with the start tag that belongs to it.
void CatalogXMLParser::Private::findRefusedRecord(qint64 endToken)
{
    QVector<QPair<qint64, qint64>> starts;
    QPair<qint64, qint64> last;
    input.file.seek(0);
    for (qint64 token = 1; token <= endToken && !isLast(input.reader.readNext()); ++token) {
        if (input.reader.isStartElement())
            starts.append({input.reader.lineNumber(), input.reader.columnNumber() + 1});
        else if (input.reader.isEndElement())
            last = starts.takeLast();
    }
    failure.line = last.first;
    failure.column = last.second;
}

const QVector<QString> &parameterExtensionsInFileOrder(const CatalogXMLParser &parser)
{
    return parser.m_private->parameterExtensionKeys;
}

} // namespace Orvida::Catalogs
