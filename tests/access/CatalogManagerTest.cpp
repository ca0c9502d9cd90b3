// The manager: one catalog per identifier, its signals and its lock, and the question about 3D.

#include "catalogs/access/CatalogManager.h"

#include "support/TestSupport.h"

#include <QtTest>

#include <chrono>
#include <future>

using namespace std::chrono_literals;
using namespace Orvida::Catalogs;
using namespace Orvida::Tests;

namespace {

CatalogManager &manager()
{
    return *CatalogManager::instance();
}

// A catalog with this style and one code class, which is named after the style.
QByteArray catalogOf(const QByteArray &style)
{
    return catalogXml("<CATALOG><CAT_Style>" + style + "</CAT_Style></CATALOG><CLASS><CLASS_PK>" + style
                      + "</CLASS_PK></CLASS>");
}

// Records signals while it lives. Emissions never overlap, so any thread may cause them.
struct Signals
{
    const int catalogType = qRegisterMetaType<CatalogSptr>("CatalogSptr");
    const int identifierType = qRegisterMetaType<QString>("Orvida::Base::GUID");
    QSignalSpy ready{&manager(), &CatalogManager::catalogReady};
    QSignalSpy failed{&manager(), &CatalogManager::failedToLoadCatalog};
};

} // namespace

// The manager lives as long as the process, so each test has identifiers of its own.
class CatalogManagerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void describesItsSignals();
    void loadsOncePerIdentifier();
    void triesAFailedCatalogAgain();
    void announcesBeforeItReturns_data();
    void announcesBeforeItReturns();
    void tellsWhether3DIsSupported_data();
    void tellsWhether3DIsSupported();
    void keepsItsFirstAnswerAbout3D();

private:
    CatalogFolder m_folder;
};

// Stands before any test that registers the types of the parameters.
void CatalogManagerTest::describesItsSignals()
{
    for (const char *signature : {"catalogReady(CatalogSptr)", "failedToLoadCatalog(Orvida::Base::GUID)"})
        QVERIFY(manager().metaObject()->indexOfSignal(signature) >= 0);
    for (const char *type : {"CatalogSptr", "Orvida::Base::GUID"})
        QCOMPARE(QMetaType::type(type), int(QMetaType::UnknownType));
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
    const CatalogSptr first = manager().getCatalog(id); // an identifier that nobody knows yet
    files.add(id, m_folder.write(id, catalogOf("1").chopped(3)));
    const CatalogSptr second = manager().getCatalog(id);
    QVERIFY(first && second && first != second && !first->IsValid() && !second->IsValid());
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

// While a receiver runs, another thread finds the lock taken, even for a catalog that is in the cache, but
// is told about 3D.
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

void CatalogManagerTest::tellsWhether3DIsSupported_data()
{
    QTest::addColumn<bool>("is3DSupported");
    for (const char *style : {"2147483648", "-1", "6442450944"})
        QTest::newRow(style) << true;
    for (const char *style : {"12", "2147483647", "4294967296"})
        QTest::newRow(style) << false;
}

void CatalogManagerTest::tellsWhether3DIsSupported()
{
    FileTable files;
    const QString id = text("style ") + text(QTest::currentDataTag());
    files.add(id, m_folder.write(text("style.xml"), catalogOf(QTest::currentDataTag())));
    QTEST(manager().is3DSupportedCatalog(id), "is3DSupported");
}

// What is known of a catalog and what is known of its style are kept apart.
void CatalogManagerTest::keepsItsFirstAnswerAbout3D()
{
    const QStringList ids = {text("style"), text("Style"), text("STYLE")};
    QVERIFY(!manager().is3DSupportedCatalog(ids.at(0))); // nobody is there to tell its file
    FileTable files;
    const Signals sent;
    for (const QString &id : ids)
        files.add(id, m_folder.path(text("changing.xml")));
    QVERIFY(!manager().is3DSupportedCatalog(ids.at(1))); // its file is not there
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

QTEST_GUILESS_MAIN(CatalogManagerTest)

#include "CatalogManagerTest.moc"
