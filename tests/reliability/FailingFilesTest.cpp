// Files that are there but give no catalog: devices, pipes, holes, names that lead nowhere. Each load fails,
// says so, and leaves the next one alone.

#include "catalogs/access/CatalogManager.h"
#include "catalogs/reading/CatalogXMLParser.h"

#include "support/TestSupport.h"

#include <QFile>
#include <QtTest>

#include <future>

#include <fcntl.h>
#include <sys/fsuid.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Orvida::Catalogs;
using namespace Orvida::Tests;

namespace {

const QByteArray goodCatalog = catalogXml("<CATALOG><CAT_Style>-1</CAT_Style></CATALOG>");

// While it lives, the files of root, who may read everything, are another user's.
struct WithoutPrivileges
{
    explicit WithoutPrivileges(bool isWanted) { setfsuid(isWanted ? 65534 : geteuid()); }
    ~WithoutPrivileges() { setfsuid(geteuid()); }
    Q_DISABLE_COPY(WithoutPrivileges)
};

} // namespace

class FailingFilesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void failsAndSaysWhy_data();
    void failsAndSaysWhy();
    void readsANamedPipeUntilItsWriterGoes_data();
    void readsANamedPipeUntilItsWriterGoes();

private:
    QString sparse(const char *beginning) const;

    CatalogFolder m_folder;
};

void FailingFilesTest::initTestCase()
{
    qRegisterMetaType<CatalogSptr>("CatalogSptr");
    qRegisterMetaType<QString>("Orvida::Base::GUID");
}

// A file of 4 GB that has zeros behind this beginning.
QString FailingFilesTest::sparse(const char *beginning) const
{
    static int number = 0;
    const QString path = m_folder.write(text("sparse%1.xml").arg(++number), beginning);
    return QFile::resize(path, Q_INT64_C(4) << 30) ? path : QString();
}

void FailingFilesTest::failsAndSaysWhy_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("reason");
    const auto row = [](const char *name, const QString &path, CatalogReadFailure::Reason reason) {
        QTest::newRow(name) << path << int(reason);
    };
    for (const char *endless : {"/dev/zero", "/dev/full"})
        row(endless, text(endless), CatalogReadFailure::NotWellFormed);
    row("/dev/null", text("/dev/null"), CatalogReadFailure::NotWellFormed);
    row("/proc/self/mem", text("/proc/self/mem"), CatalogReadFailure::FileNotRead);
    row("hole in the document", sparse("<OVCAT>"), CatalogReadFailure::NotWellFormed);
    row("hole in a text", sparse("<CLASS><CLASS_PK>a"), CatalogReadFailure::NotWellFormed);
    row("hole in a comment", sparse("<OVCAT><!--"), CatalogReadFailure::NotWellFormed);
    row("hole in an attribute", sparse("<OVCAT a='"), CatalogReadFailure::NotWellFormed);
    row("hole in a name", sparse("<OVCAT"), CatalogReadFailure::NotWellFormed);

    const QString loop = m_folder.path(text("loop.xml"));
    QFile::link(loop, loop);
    row("loop of links", loop, CatalogReadFailure::FileNotRead);
    row("long name", m_folder.path(QString(5000, QLatin1Char('x'))), CatalogReadFailure::FileNotRead);
    row("name of several lines", m_folder.path(text("a\nb")), CatalogReadFailure::FileNotRead);
    row("name with half a letter", m_folder.path(QChar(0xD800)), CatalogReadFailure::FileNotRead);
    const QString locked = m_folder.write(text("locked.xml"), goodCatalog);
    QFile::setPermissions(locked, {});
    row("no permission", locked, CatalogReadFailure::FileNotRead);
}

void FailingFilesTest::failsAndSaysWhy()
{
    QFETCH(QString, path);
    const QString id = text(QTest::currentDataTag());
    CatalogManager &manager = *CatalogManager::instance();
    QSignalSpy ready(&manager, &CatalogManager::catalogReady);
    QSignalSpy failed(&manager, &CatalogManager::failedToLoadCatalog);
    FileTable files;
    files.add(id, path);
    {
        const LogCapture log;
        const WithoutPrivileges user(id == text("no permission"));
        QCOMPARE(int(manager.getCatalog(id)->status()), int(Catalog::LoadFailed));
        QVERIFY(!manager.is3DSupportedCatalog(id));
        CatalogXMLParser parser;
        QHash<QString, QSharedPointer<CatalogItem>> items;
        QVERIFY(!parser.readFile(path, items));
        QTEST(int(parser.failure().reason), "reason");
        QVERIFY(!parser.failure().detail.isEmpty());
        QCOMPARE(log.messages(), QStringList());
    }
    QCOMPARE(QList<QVariantList>(failed), QList<QVariantList>{{id}});
    files.add(id, m_folder.write(text("good.xml"), goodCatalog));
    QVERIFY(manager.getCatalog(id)->IsValid());
    QCOMPARE(ready.count(), 1);
}

void FailingFilesTest::readsANamedPipeUntilItsWriterGoes_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("isValid");
    QTest::newRow("at the end") << goodCatalog << true;
    QTest::newRow("in the middle") << goodCatalog.chopped(10) << false;
    QTest::newRow("at once") << QByteArray() << false;
}

void FailingFilesTest::readsANamedPipeUntilItsWriterGoes()
{
    QFETCH(QByteArray, content);
    const QString id = text("pipe ") + text(QTest::currentDataTag());
    const QByteArray path = m_folder.path(id).toUtf8();
    QCOMPARE(mkfifo(path.constData(), 0600), 0);
    FileTable files;
    files.add(id, QString::fromUtf8(path));
    const auto writer = std::async(std::launch::async, [&] {
        const int pipe = open(path.constData(), O_WRONLY);
        for (const char &letter : content) // one at a time, so that the reader has to wait
            write(pipe, &letter, 1);
        close(pipe);
    });
    QTEST(CatalogManager::instance()->getCatalog(id)->IsValid(), "isValid");
}

QTEST_GUILESS_MAIN(FailingFilesTest)

#include "FailingFilesTest.moc"
