// The manager: one catalog per identifier, its signals and its lock, and the question about 3D.

#include "catalogs/access/CatalogManager.h"

#include "support/TestSupport.h"

#include <QMetaMethod>
#include <QSet>
#include <QtTest>

#include <array>
#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <stdexcept>
#include <thread>
#include <vector>

using namespace Orvida::Catalogs;
using namespace Orvida::Tests;

namespace {

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

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

struct ThrowingProvider : FileTable
{
    QString getCatalogFileName(const QString &id) const override
    {
        return throws ? throw std::logic_error("no name") : FileTable::getCatalogFileName(id);
    }
    bool throws = false;
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
    void freesItsLocksWhenTheHostThrows();
    void servesManyThreads();
    void tellsWhether3DIsSupported();
    void keepsItsFirstAnswerAbout3D();

private:
    CatalogFolder m_folder;
};

// Stands before any test that registers the types of the parameters.
void CatalogManagerTest::describesItsSignals()
{
    const QMetaObject *meta = manager().metaObject();
    QCOMPARE(manager().qt_metacast("Orvida::Catalogs::CatalogManager"), static_cast<void *>(&manager()));
    QCOMPARE(meta->methodCount() - meta->methodOffset(), 2);
    const QByteArrayList types = {"CatalogSptr", "Orvida::Base::GUID"};
    const QByteArrayList signatures = {"catalogReady(CatalogSptr)",
                                       "failedToLoadCatalog(Orvida::Base::GUID)"};
    for (int index = 0; index < 2; ++index) {
        const QMetaMethod method = meta->method(meta->methodOffset() + index);
        QCOMPARE(method.methodSignature(), signatures.at(index));
        QCOMPARE(method.methodType(), QMetaMethod::Signal);
        int typeId = 0;
        int parameter = 0;
        void *query[] = {&typeId, &parameter};
        manager().qt_metacall(QMetaObject::RegisterMethodArgumentMetaType, method.methodIndex(), query);
        QCOMPARE(typeId, -1);
        QCOMPARE(QMetaType::type(types.at(index)), int(QMetaType::UnknownType));
    }
}

// Letter case counts, and a null identifier is the empty one.
void CatalogManagerTest::loadsOncePerIdentifier()
{
    FileTable files;
    const Signals sent;
    QSet<Catalog *> catalogs;
    for (const QString &id : {text(""), text("once"), text("Once"), text("once ")}) {
        files.add(id, m_folder.write(text("once.xml"), catalogOf("1")));
        const CatalogSptr first = manager().getCatalog(id);
        QVERIFY(first && first->IsValid());
        QCOMPARE(first->catalogId(), id);
        catalogs.insert(first.data());
        m_folder.write(text("once.xml"), catalogOf("2"));
        QCOMPARE(manager().getCatalog(id), first);
        QVERIFY(first->getItemById(text("1")) && !first->getItemById(text("2")));
        QCOMPARE(files.questions(id), 1);
        QCOMPARE(sent.ready.count(), catalogs.size());
    }
    QCOMPARE(catalogs.size(), 4);
    QCOMPARE(manager().getCatalog(QString()), manager().getCatalog(text("")));
    QCOMPARE(sent.ready.count() + sent.failed.count(), 4);
}

void CatalogManagerTest::triesAFailedCatalogAgain()
{
    FileTable files;
    const Signals sent;
    const QString id = text("failing");
    const CatalogSptr first = manager().getCatalog(id); // an identifier that nobody knows yet
    files.add(id, m_folder.write(id, catalogOf("1").chopped(3)));
    const CatalogSptr second = manager().getCatalog(id);
    QVERIFY(first && second && first != second);
    QCOMPARE(first->status(), Catalog::LoadFailed);
    QCOMPARE(second->status(), Catalog::LoadFailed);
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
    files.add(cachedId, m_folder.write(id, catalogOf("-1")));
    if (isReady)
        files.add(id, m_folder.path(id));
    manager().getCatalog(cachedId);
    std::promise<bool> is3DAnswered;
    std::promise<void> hasCatalog;
    std::thread other;
    CatalogSptr announced;
    QStringList events;
    const auto isKnown = [](auto future, int milliseconds) {
        return future.wait_for(std::chrono::milliseconds(milliseconds)) == std::future_status::ready;
    };
    const auto receive = [&](const QString &announcedId) {
        other = std::thread([&] {
            is3DAnswered.set_value(manager().is3DSupportedCatalog(cachedId));
            manager().getCatalog(cachedId);
            hasCatalog.set_value();
        });
        events.append(announcedId);
        events.append(text(isKnown(is3DAnswered.get_future(), 10000) ? "3D known" : "waits for 3D"));
        events.append(text(isKnown(hasCatalog.get_future(), 200) ? "not locked" : "locked"));
    };
    QObject receiver;
    connect(&manager(), &CatalogManager::catalogReady, &receiver, [&](const CatalogSptr &catalog) {
        announced = catalog;
        receive(catalog->getItemById(QString())->catalog() ? catalog->catalogId() : text("incomplete"));
    });
    connect(&manager(), &CatalogManager::failedToLoadCatalog, &receiver, receive);
    const CatalogSptr catalog = manager().getCatalog(id);
    events.append(text("returned"));
    if (other.joinable())
        other.join();
    QCOMPARE(events, QStringList({id, text("3D known"), text("locked"), text("returned")}));
    QCOMPARE(announced, isReady ? catalog : CatalogSptr());
}

// With a lock still taken, the calls behind the first ones would never return.
void CatalogManagerTest::freesItsLocksWhenTheHostThrows()
{
    ThrowingProvider files;
    const QString id = text("throwing");
    files.add(id, m_folder.write(id, catalogOf("-1")));
    const auto receiver = std::make_unique<QObject>();
    const auto refuse = [] { throw std::runtime_error("refused"); };
    connect(&manager(), &CatalogManager::catalogReady, receiver.get(), refuse);
    connect(&manager(), &CatalogManager::failedToLoadCatalog, receiver.get(), refuse);
    files.throws = true;
    QVERIFY_EXCEPTION_THROWN(manager().getCatalog(id), std::logic_error);
    QVERIFY_EXCEPTION_THROWN(manager().is3DSupportedCatalog(id), std::logic_error);
    files.throws = false;
    QVERIFY_EXCEPTION_THROWN(manager().getCatalog(id), std::runtime_error);
    QVERIFY_EXCEPTION_THROWN(manager().getCatalog(text("throwing failure")), std::runtime_error);
    // This one was in the cache before its receivers ran.
    QVERIFY(manager().getCatalog(id)->IsValid() && manager().is3DSupportedCatalog(id));
}

void CatalogManagerTest::servesManyThreads()
{
    const QStringList ids = {text("solid 1"), text("solid 2"), text("flat"), text("no file")};
    FileTable files;
    const Signals sent;
    for (const QString &id : ids.mid(0, 3))
        files.add(id, m_folder.write(id, catalogOf(id == text("flat") ? "0" : "-1")));
    std::array<QSet<Catalog *>, 8> catalogs;
    std::vector<std::thread> threads;
    std::atomic<int> wrongAnswers{0};
    for (auto &ofThread : catalogs) {
        threads.emplace_back([&] {
            for (int round = 0; round < 200; ++round) {
                const QString id = ids.at(round % ids.size());
                const CatalogSptr catalog = manager().getCatalog(id);
                if (catalog->IsValid())
                    ofThread.insert(catalog.data());
                if (catalog->catalogId() != id || catalog->IsValid() == (id == ids.last())
                    || manager().is3DSupportedCatalog(id) != id.startsWith(text("solid")))
                    ++wrongAnswers;
            }
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    QCOMPARE(wrongAnswers.load(), 0);
    for (const auto &ofThread : catalogs)
        QCOMPARE(ofThread, catalogs.front());
    QCOMPARE(catalogs.front().size(), 3);
    QCOMPARE(sent.ready.count(), 3); // each was loaded once
    QCOMPARE(sent.failed.count(), 8 * 50);
}

void CatalogManagerTest::tellsWhether3DIsSupported()
{
    FileTable files;
    for (const auto &[style, is3DSupported] : QMap<QByteArray, bool>{
             {"2147483648", true},
             {"-1", true},
             {"6442450944", true},
             {"12", false},
             {"2147483647", false},
             {"4294967296", false},
             {"-2147483649", false},
             {"", false}}.toStdMap()) {
        const QString id = text("style ") + text(style);
        files.add(id, m_folder.write(text("style.xml"), catalogOf(style)));
        QCOMPARE(manager().is3DSupportedCatalog(id), is3DSupported);
    }
}

// What is known of a catalog and what is known of its style are kept apart.
void CatalogManagerTest::keepsItsFirstAnswerAbout3D()
{
    const QStringList ids = {text("style"), text("Style"), text("STYLE"), text("stylE")};
    QVERIFY(!manager().is3DSupportedCatalog(ids.at(0))); // nobody is there to tell its file
    FileTable files;
    const Signals sent;
    for (const QString &id : ids)
        files.add(id, m_folder.path(text("changing.xml")));
    QVERIFY(!manager().is3DSupportedCatalog(ids.at(1))); // its file is not there
    m_folder.write(text("changing.xml"), catalogOf("-1"));
    QVERIFY(manager().is3DSupportedCatalog(ids.at(2)));
    QCOMPARE(sent.ready.count() + sent.failed.count(), 0);
    for (const QString &id : ids)
        QVERIFY(manager().getCatalog(id)->IsValid() && !sent.ready.isEmpty());
    m_folder.write(text("changing.xml"), catalogOf("0"));
    for (const QString &id : ids) {
        QCOMPARE(manager().is3DSupportedCatalog(id), id == ids.at(2));
        QCOMPARE(files.questions(id), id == ids.at(0) ? 1 : 2); // one for the catalog
    }
}

QTEST_GUILESS_MAIN(CatalogManagerTest)

#include "CatalogManagerTest.moc"
