// The manager: location of files, one catalog per identifier, signals, lock, the 3D query, and exit.

#include "catalogs/access/CatalogManager.h"
#include "catalogs/access/CatalogConfigData.h"

#include "support/TestSupport.h"

#include <QWeakPointer>
#include <QtTest>

#include <chrono>
#include <cstdlib>
#include <future>

using namespace std::chrono_literals;
using namespace Orvida::Catalogs;
using namespace Orvida::Tests;

namespace {

CatalogManager &manager()
{
    return *CatalogManager::instance();
}

// A catalog with this style and one code class.
QByteArray catalogOf(const QByteArray &style)
{
    return catalogXml("<CATALOG><CAT_Style>" + style
                      + "</CAT_Style></CATALOG><CLASS><CLASS_PK>C</CLASS_PK></CLASS>");
}

// Records signals while it lives. Emissions never overlap, so any thread may cause them.
struct Signals
{
    const bool areTypesRegistered = (CatalogManager::registerMetaTypes(), true);

    QSignalSpy ready{&manager(), &CatalogManager::catalogReady};
    QSignalSpy failed{&manager(), &CatalogManager::failedToLoadCatalog};
};

struct ThrowingProvider : ICatalogFileNameProvider
{
    ThrowingProvider() { CatalogConfigData::setCatalogFileNameProvider(this); }
    ~ThrowingProvider() { CatalogConfigData::setCatalogFileNameProvider(nullptr); }
    QString getCatalogFileName(const QString &) const override { throw 1; }
};

// A static object of the host that is created before the manager and so outlives it. Ends the process with a
// failure if it is not served correctly.
struct StaticObject
{
    ~StaticObject()
    {
        const bool isWhole = kept && kept->getItemById(QString())->getChildItems().size() == 1;
        const bool isServed = !manager().getCatalog(text("no file"))->IsValid()
                              && !manager().is3DSupportedCatalog(text("no file"));
        if (released || !isWhole || !isServed)
            std::_Exit(1);
    }
    CatalogSptr kept;
    QWeakPointer<Catalog> released;
} staticObject;

} // namespace

// The manager lives as long as the process, so each test has identifiers of its own.
class CatalogManagerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void describesItsSignals();
    void composesPaths();
    void loadsOncePerIdentifier();
    void triesAFailedCatalogAgain();
    void announcesBeforeItReturns_data();
    void announcesBeforeItReturns();
    void freesItsLockWhenAnExceptionPasses();
    void keepsItsFirstAnswerAbout3D();
    void tellsWhether3DIsSupported();
    void servesObjectsThatOutliveIt();

private:
    CatalogFolder m_folder;
};

// Must run first: later tests register the types of the parameters.
void CatalogManagerTest::describesItsSignals()
{
    const QMetaObject *meta = manager().metaObject();
    QCOMPARE(meta->className(), "Orvida::Catalogs::CatalogManager");
    QCOMPARE(meta->methodCount() - meta->methodOffset(), 2);
    QCOMPARE(meta->indexOfSignal("catalogReady(CatalogSptr)"), meta->methodOffset());
    QCOMPARE(meta->indexOfSignal("failedToLoadCatalog(Orvida::Base::GUID)"), meta->methodOffset() + 1);
    for (const char *type : {"CatalogSptr", "Orvida::Base::GUID"})
        QCOMPARE(QMetaType::type(type), int(QMetaType::UnknownType));
    for (int signal = meta->methodOffset(); signal < meta->methodCount(); ++signal) {
        int argument = 0;
        int type = 0;
        void *query[] = {&type, &argument};
        QMetaObject::metacall(&manager(), QMetaObject::RegisterMethodArgumentMetaType, signal, query);
        QCOMPARE(type, -1);
    }
}

// Folder, name and path: nothing is added or normalised.
void CatalogManagerTest::composesPaths()
{
    for (const char *row : {"/cat/|X.xml|/cat/X.xml", "/cat|X.xml|/catX.xml", "|X.xml|X.xml",
                            "/cat//./|/../X |/cat//.//../X ", "/cat/||"}) {
        const QStringList texts = text(row).split(QLatin1Char('|'));
        const FileTable replaced;
        FileTable files;
        files.add(text("Id "), texts.at(1));
        CatalogConfigData::setCatalogFolderPath(texts.at(0));
        QCOMPARE(manager().findFileNameById(text("Id ")), texts.at(2));
        CatalogConfigData::setCatalogFileNameProvider(nullptr);
        QVERIFY(manager().findFileNameById(text("Id ")).isNull());
        QCOMPARE(files.questions(text("Id ")), 1);
    }
}

// Letter case counts, and a null identifier is the empty one.
void CatalogManagerTest::loadsOncePerIdentifier()
{
    FileTable files;
    const Signals sent;
    QList<CatalogSptr> catalogs;
    for (const QString &id : {text(""), text("once"), text("Once"), text("once ")}) {
        files.add(id, m_folder.write(text("once.xml"), catalogOf("1")));
        const CatalogSptr first = manager().getCatalog(id);
        QVERIFY(first && first->IsValid() && !catalogs.contains(first));
        QCOMPARE(first->catalogId(), id);
        catalogs.append(first);
        QCOMPARE(manager().getCatalog(id), first);
        QCOMPARE(files.questions(id), 1);
    }
    QCOMPARE(manager().getCatalog(QString()), catalogs.first());
    QVERIFY(sent.ready.count() == catalogs.size() && sent.failed.isEmpty());
}

void CatalogManagerTest::triesAFailedCatalogAgain()
{
    FileTable files;
    const Signals sent;
    const QString id = text("failing");
    const CatalogSptr first = manager().getCatalog(id); // a new identifier
    files.add(id, m_folder.write(id, catalogOf("1").chopped(3)));
    const CatalogSptr second = manager().getCatalog(id);
    QVERIFY(first && second && first != second && !first->IsValid() && !second->IsValid());
    QCOMPARE(summaryOf(first->failure()), text("not read"));
    QCOMPARE(summaryOf(second->failure()), text("not well-formed at 3:87"));
    QCOMPARE(QList<QVariantList>(sent.failed), QList<QVariantList>({{id}, {id}}));
    m_folder.write(id, catalogOf("1"));
    const CatalogSptr loaded = manager().getCatalog(id);
    QVERIFY(loaded->IsValid());
    QCOMPARE(manager().getCatalog(id), loaded);
    QVERIFY(sent.ready.count() == 1 && sent.failed.count() == 2);
}

void CatalogManagerTest::announcesBeforeItReturns_data()
{
    QTest::addColumn<bool>("isReady");
    QTest::newRow("ready") << true;
    QTest::newRow("failed") << false;
}

// While a receiver runs, another thread waits for the lock, even for a catalog that is in the cache, but not
// for an answer about 3D.
void CatalogManagerTest::announcesBeforeItReturns()
{
    QFETCH(bool, isReady);
    FileTable files;
    const QString id = text("announced, ") + text(QTest::currentDataTag());
    const QString cachedId = id + text(", cached");
    for (const QString &withFile : {cachedId, isReady ? id : cachedId})
        files.add(withFile, m_folder.write(text("announced.xml"), catalogOf("-1")));
    manager().getCatalog(cachedId);
    std::future<bool> is3DSupported;
    std::future<CatalogSptr> cached;
    QStringList announced;
    const auto receive = [&](const QString &announcedId) {
        announced.append(announcedId);
        is3DSupported =
            std::async(std::launch::async, [&] { return manager().is3DSupportedCatalog(cachedId); });
        cached = std::async(std::launch::async, [&] { return manager().getCatalog(cachedId); });
        QVERIFY(is3DSupported.wait_for(10s) == std::future_status::ready);
        QVERIFY(cached.wait_for(200ms) == std::future_status::timeout);
    };
    QObject receiver;
    connect(&manager(), &CatalogManager::catalogReady, &receiver,
            [&](const CatalogSptr &catalog) { receive(catalog->catalogId()); });
    connect(&manager(), &CatalogManager::failedToLoadCatalog, &receiver, receive);
    QCOMPARE(manager().getCatalog(id)->IsValid(), isReady);
    QCOMPARE(announced, QStringList{id});
}

// If the lock were still held, the next call would never return.
void CatalogManagerTest::freesItsLockWhenAnExceptionPasses()
{
    const QString id = text("exception");
    {
        const Signals sent;
        const ThrowingProvider provider;
        QVERIFY_EXCEPTION_THROWN(manager().getCatalog(id), int);
        QVERIFY_EXCEPTION_THROWN(manager().is3DSupportedCatalog(id), int);
        QVERIFY(sent.ready.isEmpty() && sent.failed.isEmpty());
    }
    FileTable files;
    QObject receiver;
    connect(&manager(), &CatalogManager::catalogReady, &receiver, [] { throw 1; });
    connect(&manager(), &CatalogManager::failedToLoadCatalog, &receiver, [] { throw 1; });
    QVERIFY_EXCEPTION_THROWN(manager().getCatalog(id), int);
    files.add(id, m_folder.write(id, catalogOf("-1")));
    QVERIFY_EXCEPTION_THROWN(manager().getCatalog(id), int);
    QVERIFY(manager().getCatalog(id)->IsValid()); // it was in the cache when it was announced
    QVERIFY(manager().is3DSupportedCatalog(id));
}

// Catalogs and styles are cached independently.
void CatalogManagerTest::keepsItsFirstAnswerAbout3D()
{
    const QStringList ids = {text("style"), text("Style"), text("STYLE")};
    QVERIFY(!manager().is3DSupportedCatalog(ids.at(0))); // there is no provider
    FileTable files;
    const Signals sent;
    for (const QString &id : ids)
        files.add(id, m_folder.path(text("changing.xml")));
    QVERIFY(!manager().is3DSupportedCatalog(ids.at(1))); // there is no file
    m_folder.write(text("changing.xml"), catalogOf("-1"));
    QVERIFY(manager().is3DSupportedCatalog(ids.at(2)));
    QVERIFY(sent.ready.isEmpty() && sent.failed.isEmpty());
    for (const QString &id : ids) {
        QVERIFY(manager().getCatalog(id)->IsValid());
        QCOMPARE(manager().is3DSupportedCatalog(id), id == ids.at(2));
    }
    m_folder.write(text("changing.xml"), catalogOf("0"));
    QVERIFY(manager().is3DSupportedCatalog(ids.at(2)));
}

void CatalogManagerTest::tellsWhether3DIsSupported()
{
    FileTable files;
    QStringList supported;
    for (const QByteArray style : {"2147483648", "-1", "6442450944", "12", "2147483647", "4294967296"}) {
        files.add(text(style), m_folder.write(text(style), catalogOf(style)));
        if (manager().is3DSupportedCatalog(text(style)))
            supported += text(style);
    }
    QCOMPARE(supported, QStringList({text("2147483648"), text("-1"), text("6442450944")}));
}

// The rest of this test happens when the process ends.
void CatalogManagerTest::servesObjectsThatOutliveIt()
{
    FileTable files;
    for (const char *id : {"kept", "released"})
        files.add(text(id), m_folder.write(text(id), catalogOf("0")));
    staticObject.kept = manager().getCatalog(text("kept"));
    staticObject.released = manager().getCatalog(text("released"));
    QVERIFY(staticObject.released);
}

QTEST_GUILESS_MAIN(CatalogManagerTest)

#include "CatalogManagerTest.moc"
