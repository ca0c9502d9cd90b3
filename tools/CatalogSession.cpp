#include "tools/CatalogSession.h"

#include "catalogs/access/CatalogConfigData.h"
#include "catalogs/access/CatalogManager.h"
#include "tools/LoadFailureText.h"
#include "tools/OutputStyle.h"
#include "tools/StandardOutputDiversion.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>
#include <QXmlStreamReader>

#include <cstdio>

#include <sys/stat.h>

namespace Orvida::Tools {

using Catalogs::CatalogManager;

namespace {

// Whether no well-formed XML can begin like this, whatever follows. An error near its end may come from
// where it was cut.
bool isMalformed(const QByteArray &beginning)
{
    QXmlStreamReader reader(beginning);
    while (!reader.atEnd())
        reader.readNext();
    return reader.hasError() && reader.error() != QXmlStreamReader::PrematureEndOfDocumentError
           && reader.characterOffset() < beginning.size() / 8;
}

} // namespace

CatalogSession::CatalogSession(const QString &fileName) : m_fileName(fileName), m_path(fileName)
{
    Catalogs::CatalogConfigData::setCatalogFileNameProvider(this);
}

CatalogSession::~CatalogSession()
{
    Catalogs::CatalogConfigData::setCatalogFileNameProvider(nullptr);
}

Catalogs::CatalogSptr CatalogSession::load()
{
    const StandardOutputDiversion diversion;
    if (isPipe() && !copyPipe())
        return {};
    Catalogs::CatalogSptr catalog = CatalogManager::instance()->getCatalog(m_fileName);
    if (catalog->IsValid())
        return catalog;
    // The manager only tells that a load failed. Reading the file once more tells why.
    const QString name = isStandardInput() ? displayName() : m_fileName;
    if (!readRecords())
        std::fputs(loadFailureText(name, m_records->failure()).toUtf8().constData(), stderr);
    return {};
}

bool CatalogSession::supports3D() const
{
    return CatalogManager::instance()->is3DSupportedCatalog(m_fileName);
}

qint64 CatalogSession::style() const
{
    return Catalogs::CatalogXMLParser().readCatalogStyleFlag(m_path);
}

const Catalogs::CatalogXMLParser &CatalogSession::records()
{
    if (!m_records && !readRecords())
        m_records = std::make_unique<Catalogs::CatalogXMLParser>();
    return *m_records;
}

QStringList CatalogSession::profiles()
{
    const Catalogs::CatalogXMLParser &file = records();
    QStringList keys;
    for (const auto &profile : file.m_profiles)
        keys << profile.pk;
    for (const auto &listClass : file.m_listClasses)
        keys << listClass.profileFk;
    for (const auto &columns : file.m_columns) {
        for (const auto &column : columns)
            keys << column.profileFk;
    }
    keys.sort();
    keys.removeDuplicates();
    return keys;
}

QString CatalogSession::displayName() const
{
    if (isStandardInput())
        return QStringLiteral("<standard input>");
    return QFileInfo(m_fileName).fileName();
}

QString CatalogSession::getCatalogFileName(const QString &) const
{
    return m_path;
}

bool CatalogSession::isStandardInput() const
{
    return m_fileName == QLatin1String("-");
}

bool CatalogSession::isPipe() const
{
    struct stat status;
    return isStandardInput()
           || (stat(QFile::encodeName(m_fileName).constData(), &status) == 0 && S_ISFIFO(status.st_mode));
}

// The catalog and its style are read in two passes, and a pipe can be read only once. What may have no end,
// such as a device, is not copied further than it takes to see that it is no catalog.
bool CatalogSession::copyPipe()
{
    m_copy = std::make_unique<QTemporaryFile>();
    QFile input(m_fileName);
    bool isCopied =
        m_copy->open()
        && (isStandardInput() ? input.open(stdin, QIODevice::ReadOnly) : input.open(QIODevice::ReadOnly));
    while (isCopied) {
        const QByteArray block = input.read(1 << 20);
        isCopied = input.error() == QFileDevice::NoError && m_copy->write(block) == block.size();
        if (block.isEmpty() || (m_copy->pos() == block.size() && isMalformed(block)))
            break;
    }
    isCopied = isCopied && m_copy->flush();
    if (!isCopied) {
        const QFileDevice &failed = input.error() != QFileDevice::NoError ? input : *m_copy;
        const QString message = QStringLiteral("cannot read %1: %2").arg(displayName(), failed.errorString());
        std::fprintf(stderr, "orvida-catalog: error: %s\n", qUtf8Printable(OutputStyle::singleLine(message)));
    }
    m_path = m_copy->fileName();
    return isCopied;
}

bool CatalogSession::readRecords()
{
    m_records = std::make_unique<Catalogs::CatalogXMLParser>();
    QHash<QString, QSharedPointer<Catalogs::CatalogItem>> items;
    return m_records->readFile(m_path, items);
}

} // namespace Orvida::Tools
