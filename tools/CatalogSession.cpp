#include "tools/CatalogSession.h"

#include "catalogs/access/CatalogConfigData.h"
#include "catalogs/access/CatalogManager.h"
#include "tools/LoadFailureText.h"
#include "tools/StandardOutputDiversion.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <cstdio>

namespace Orvida::Tools {

using Catalogs::CatalogManager;

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
    if (m_fileName == QLatin1String("-") && !readStandardInput())
        return {};
    Catalogs::CatalogSptr catalog = CatalogManager::instance()->getCatalog(m_fileName);
    if (catalog->IsValid())
        return catalog;
    // The manager only tells that a load failed. Reading the file once more tells why.
    const QString name = m_standardInput ? displayName() : m_fileName;
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
    if (m_fileName == QLatin1String("-"))
        return QStringLiteral("<standard input>");
    return QFileInfo(m_fileName).fileName();
}

QString CatalogSession::getCatalogFileName(const QString &) const
{
    return m_path;
}

// The catalog and its style are read in two passes, and a pipe can be read only once.
bool CatalogSession::readStandardInput()
{
    m_standardInput = std::make_unique<QTemporaryFile>();
    QFile input;
    bool isCopied = m_standardInput->open() && input.open(stdin, QIODevice::ReadOnly);
    while (isCopied && !input.atEnd()) {
        const QByteArray block = input.read(1 << 20);
        isCopied = input.error() == QFileDevice::NoError && m_standardInput->write(block) == block.size();
        if (block.isEmpty())
            break;
    }
    isCopied = isCopied && m_standardInput->flush();
    if (!isCopied)
        std::fputs("orvida-catalog: error: cannot read standard input\n", stderr);
    m_path = m_standardInput->fileName();
    return isCopied;
}

bool CatalogSession::readRecords()
{
    m_records = std::make_unique<Catalogs::CatalogXMLParser>();
    QHash<QString, QSharedPointer<Catalogs::CatalogItem>> items;
    return m_records->readFile(m_path, items);
}

} // namespace Orvida::Tools
