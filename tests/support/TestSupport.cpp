#include "support/TestSupport.h"

#include "catalogs/access/CatalogConfigData.h"
#include "catalogs/building/CatalogLoader.h"
#include "catalogs/format/CatalogFormat.h"
#include "catalogs/reading/ScrambledText.h"

#include <QFile>
#include <QLoggingCategory>
#include <QMutexLocker>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace Orvida::Tests {

namespace {

QMutex logMutex;
QStringList logged;
QtMessageHandler earlierHandler = nullptr;

void collect(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    static const QHash<QtMsgType, QString> levels = {{QtDebugMsg, QStringLiteral("debug")},
                                                     {QtInfoMsg, QStringLiteral("info")},
                                                     {QtWarningMsg, QStringLiteral("warning")},
                                                     {QtCriticalMsg, QStringLiteral("critical")},
                                                     {QtFatalMsg, QStringLiteral("fatal")}};
    const QMutexLocker lock(&logMutex);
    logged.append(QString::fromUtf8(context.category) + QLatin1Char('|') + levels.value(type)
                  + QLatin1Char('|') + message);
}

} // namespace

QString CatalogFolder::write(const QString &name, const QByteArray &content) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qUtf8Printable(file.fileName()));
    return file.fileName();
}

QString CatalogFolder::path(const QString &name) const
{
    return m_folder.filePath(name);
}

QByteArray catalogXml(const QByteArray &records)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<OVCAT>\n" + records + "</OVCAT>\n";
}

QByteArray scrambledForm(const QByteArray &clear)
{
    static const QRegularExpression fieldWithText(text("<(\\w+)>([^<]*)(?=<)"));
    // Latin-1 represents the bytes, whatever their encoding is.
    const QString bytes = QString::fromLatin1(clear);
    QString result;
    int done = 0;
    for (auto matches = fieldWithText.globalMatch(bytes); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        if (!Catalogs::CatalogFormat::isScrambled(match.capturedView(1)))
            continue;
        result += bytes.midRef(done, match.capturedStart(2) - done);
        result += Catalogs::ScrambledText::encode(QString::fromUtf8(match.captured(2).toLatin1()));
        done = match.capturedEnd(2);
    }
    return (result + bytes.midRef(done)).toLatin1();
}

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool isWellFormed(const QByteArray &document)
{
    QXmlStreamReader reader(document);
    while (!reader.atEnd())
        reader.readNext();
    return !reader.hasError();
}

QByteArray scrambledCatalog(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qUtf8Printable(path));
    return scrambledForm(file.readAll());
}

QString summaryOf(const Catalogs::CatalogReadFailure &failure)
{
    const QString place = text("%1:%2").arg(failure.line).arg(failure.column);
    const QString summaries[] = {text("read"), text("not read"), text("not well-formed at ") + place,
                                 text("refused at %1: %2 without %3")
                                     .arg(place, failure.record, failure.missingFields.join(text(" and ")))};
    return summaries[failure.reason];
}

Catalogs::CatalogSptr loaded(const QByteArray &records)
{
    const CatalogFolder folder;
    return Catalogs::CatalogLoader().loadCatalog(
        folder.write(QStringLiteral("catalog.xml"), catalogXml(records)), QStringLiteral("id"));
}

LogCapture::LogCapture()
{
    const QMutexLocker lock(&logMutex);
    logged.clear();
    QLoggingCategory::setFilterRules(QStringLiteral("*=true"));
    earlierHandler = qInstallMessageHandler(collect);
}

LogCapture::~LogCapture()
{
    qInstallMessageHandler(earlierHandler);
    QLoggingCategory::setFilterRules(QString());
}

QStringList LogCapture::messages() const
{
    const QMutexLocker lock(&logMutex);
    return logged;
}

// Flushes the C library's buffer first, so that its content goes where it belongs. The destructor does not:
// what the library has not flushed by itself must not reach the file.
StandardOutputTo::StandardOutputTo(const char *path)
    : m_savedOutput((std::fflush(stdout), dup(STDOUT_FILENO)))
{
    const int file = open(path, O_WRONLY | O_CREAT | O_TRUNC, 0600);
    if (file < 0 || dup2(file, STDOUT_FILENO) < 0)
        qFatal("cannot write to %s", path);
    close(file);
}

StandardOutputTo::~StandardOutputTo()
{
    dup2(m_savedOutput, STDOUT_FILENO);
    close(m_savedOutput);
}

FileTable::FileTable()
{
    Catalogs::CatalogConfigData::setCatalogFolderPath(QString());
    Catalogs::CatalogConfigData::setCatalogFileNameProvider(this);
}

FileTable::~FileTable()
{
    Catalogs::CatalogConfigData::setCatalogFileNameProvider(nullptr);
}

void FileTable::add(const QString &catalogId, const QString &path)
{
    const QMutexLocker lock(&m_mutex);
    m_paths.insert(catalogId, path);
}

int FileTable::questions(const QString &catalogId) const
{
    const QMutexLocker lock(&m_mutex);
    return m_questions.value(catalogId);
}

QString FileTable::getCatalogFileName(const QString &catalogId) const
{
    const QMutexLocker lock(&m_mutex);
    ++m_questions[catalogId];
    return m_paths.value(catalogId);
}

} // namespace Orvida::Tests
