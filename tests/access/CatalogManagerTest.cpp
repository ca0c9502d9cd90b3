// The manager: one catalog per identifier, its signals and its lock, and the question about 3D.

#include "catalogs/access/CatalogManager.h"

#include "support/TestSupport.h"

#include <QMetaMethod>
#include <QSet>
#include <QtTest>

#include <atomic>
#include <chrono>
#include <future>
#include <stdexcept>
#include <thread>
#include <vector>

using Orvida::Catalogs::Catalog;
using Orvida::Catalogs::CatalogManager;
using Orvida::Catalogs::CatalogSptr;
using Orvida::Tests::CatalogFolder;
using Orvida::Tests::catalogXml;
using Orvida::Tests::field;
using Orvida::Tests::FileTable;

namespace {

constexpr int threadCount = 8;

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

CatalogManager &manager()
{
    return *CatalogManager::instance();
}

// A catalog with one code class, named `id`.
QByteArray catalogOf(const char *id)
{
    return catalogXml("<CLASS>" + field("CLASS_PK", text(id)) + "</CLASS>");
}

QByteArray styleOf(const char *style)
{
    return "<CATALOG>" + field("CAT_PK", text("1")) + field("CAT_Style", text(style)) + "</CATALOG>";
}

// Runs `work` with the numbers 0 and up, each in a thread of its own; all begin at the same time.
template <typename Work>
void runInThreads(Work work)
{
    std::atomic<bool> mayBegin{false};
    std::vector<std::thread> threads;
    const auto run = [&mayBegin, &work](int number) {
        while (!mayBegin)
            std::this_thread::yield();
        work(number);
    };
    for (int number = 0; number < threadCount; ++number)
        threads.emplace_back(run, number);
    mayBegin = true;
    for (std::thread &thread : threads)
        thread.join();
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
    QString getCatalogFileName(const QString &catalogId) const override
    {
        return throws ? throw std::runtime_error("no name") : FileTable::getCatalogFileName(catalogId);
    }

    bool throws = false;
};

} // namespace

// The manager lives as long as the process, so each test has identifiers of its own.
class CatalogManagerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isOneObjectForAllThreads();
    void describesItsSignals();
    void loadsOncePerIdentifier();
    void triesAFailedCatalogAgain();
    void announcesBeforeItReturns_data();
    void announcesBeforeItReturns();
    void freesItsLockWhenAReceiverThrows_data();
    void freesItsLockWhenAReceiverThrows();
    void freesItsLocksWhenTheProviderThrows();
    void servesManyThreads();
    void letsQueuedReceiversAskForCatalogs();
    void tellsWhether3DIsSupported_data();
    void tellsWhether3DIsSupported();
    void keepsItsFirstAnswerAbout3D();

private:
    CatalogFolder m_folder;
};

// Stands first, so that the threads are the ones that make the manager.
void CatalogManagerTest::isOneObjectForAllThreads()
{
    std::vector<CatalogManager *> managers(threadCount);
    runInThreads(
        [&managers](int number) { managers[static_cast<std::size_t>(number)] = CatalogManager::instance(); });
    for (CatalogManager *made : managers)
        QCOMPARE(made, CatalogManager::instance());
    QVERIFY(managers.front() && !manager().parent());
}

// Stands before any test that registers the types of the parameters.
void CatalogManagerTest::describesItsSignals()
{
    const QMetaObject *meta = manager().metaObject();
    QCOMPARE(meta->className(), "Orvida::Catalogs::CatalogManager");
    QCOMPARE(meta->superClass(), &QObject::staticMetaObject);
    QCOMPARE(manager().qt_metacast("Orvida::Catalogs::CatalogManager"), static_cast<void *>(&manager()));
    QVERIFY(!manager().qt_metacast("CatalogManager"));
    QCOMPARE(meta->methodCount() - meta->methodOffset(), 2);
    QCOMPARE(meta->propertyCount(), meta->propertyOffset());
    QCOMPARE(meta->enumeratorCount() + meta->classInfoCount() + meta->constructorCount(), 0);

    const QByteArrayList signatures = {"catalogReady(CatalogSptr)",
                                       "failedToLoadCatalog(Orvida::Base::GUID)"};
    const QByteArrayList types = {"CatalogSptr", "Orvida::Base::GUID"};
    const QByteArrayList names = {"catalog", ""};
    for (int index = 0; index < 2; ++index) {
        const QMetaMethod method = meta->method(meta->methodOffset() + index);
        QCOMPARE(method.methodSignature(), signatures.at(index));
        QCOMPARE(method.methodType(), QMetaMethod::Signal);
        QCOMPARE(method.returnType(), int(QMetaType::Void));
        QCOMPARE(method.parameterTypes(), QByteArrayList{types.at(index)});
        QCOMPARE(method.parameterNames(), QByteArrayList{names.at(index)});

        int type = 0;
        int parameter = 0;
        void *query[] = {&type, &parameter};
        manager().qt_metacall(QMetaObject::RegisterMethodArgumentMetaType, method.methodIndex(), query);
        QCOMPARE(type, -1);
        // The static call leaves the answer to a question that it does not know as it is.
        meta->static_metacall(QMetaObject::RegisterMethodArgumentMetaType, index, query);
        QCOMPARE(type, -1);
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
        QVERIFY(CatalogManager::findFileNameById(id).isEmpty());
        files.add(id, m_folder.write(text("once.xml"), catalogOf("before")));
        QCOMPARE(CatalogManager::findFileNameById(id), m_folder.path(text("once.xml")));
        const CatalogSptr first = manager().getCatalog(id);
        QVERIFY(first && first->IsValid());
        QCOMPARE(first->catalogId(), id);
        catalogs.insert(first.data());

        m_folder.write(text("once.xml"), catalogOf("after"));
        QCOMPARE(manager().getCatalog(id), first);
        files.add(id, QString());
        QCOMPARE(manager().getCatalog(id), first);
        QVERIFY(first->getItemById(text("before")) && !first->getItemById(text("after")));
        QCOMPARE(files.questions(id), 3); // two of them by this test itself
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
    QList<CatalogSptr> failed = {manager().getCatalog(id)}; // an identifier that nobody knows yet
    files.add(id, m_folder.path(id));
    failed << manager().getCatalog(id) << manager().getCatalog(id);
    m_folder.write(id, catalogOf("C").chopped(3));
    failed << manager().getCatalog(id);
    for (int time = 0; time < 4; ++time) {
        QVERIFY(failed.at(time) && failed.at(time) != failed.at((time + 1) % 4));
        QCOMPARE(failed.at(time)->status(), Catalog::LoadFailed);
        QCOMPARE(failed.at(time)->catalogId(), id);
        QCOMPARE(sent.failed.value(time), QVariantList{id});
    }
    QCOMPARE(files.questions(id), 4);
    QCOMPARE(sent.ready.count(), 0);
    m_folder.write(id, catalogOf("C"));
    const CatalogSptr loaded = manager().getCatalog(id);
    QVERIFY(loaded->IsValid());
    QCOMPARE(manager().getCatalog(id), loaded);
    QCOMPARE(sent.ready.count(), 1);
    QCOMPARE(sent.failed.count(), 4);
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
    files.add(cachedId, m_folder.write(id, catalogXml(styleOf("-1"))));
    if (isReady)
        files.add(id, m_folder.path(id));
    manager().getCatalog(cachedId);
    std::promise<bool> is3DAnswered;
    std::promise<void> hasCatalog;
    std::thread other;
    CatalogSptr announced;
    QStringList events;
    const auto receive = [&](const QString &announcedId) {
        other = std::thread([&] {
            is3DAnswered.set_value(manager().is3DSupportedCatalog(cachedId));
            manager().getCatalog(cachedId);
            hasCatalog.set_value();
        });
        events.append(announcedId);
        const auto is3DKnown = is3DAnswered.get_future().wait_for(std::chrono::seconds(10));
        events.append(text(is3DKnown == std::future_status::ready ? "3D known" : "waits for 3D"));
        const auto catalogKnown = hasCatalog.get_future().wait_for(std::chrono::milliseconds(200));
        events.append(text(catalogKnown == std::future_status::ready ? "not locked" : "locked"));
    };
    QObject receiver;
    connect(&manager(), &CatalogManager::catalogReady, &receiver, [&](const CatalogSptr &catalog) {
        announced = catalog;
        const bool isComplete = catalog->IsValid() && catalog->getItemById(QString())->catalog();
        receive(isComplete ? catalog->catalogId() : text("incomplete"));
    });
    connect(&manager(), &CatalogManager::failedToLoadCatalog, &receiver, receive);
    const CatalogSptr catalog = manager().getCatalog(id);
    events.append(text("returned"));
    other.join();
    QCOMPARE(events, QStringList({id, text("3D known"), text("locked"), text("returned")}));
    QCOMPARE(announced, isReady ? catalog : CatalogSptr());
}

void CatalogManagerTest::freesItsLockWhenAReceiverThrows_data()
{
    announcesBeforeItReturns_data();
}

// With the lock still taken, the second call would never return.
void CatalogManagerTest::freesItsLockWhenAReceiverThrows()
{
    QFETCH(bool, isReady);
    FileTable files;
    const QString id = text("throwing, ") + text(QTest::currentDataTag());
    if (isReady)
        files.add(id, m_folder.write(id, catalogOf("C")));
    {
        QObject receiver;
        const auto refuse = [] { throw std::runtime_error("refused"); };
        connect(&manager(), &CatalogManager::catalogReady, &receiver, refuse);
        connect(&manager(), &CatalogManager::failedToLoadCatalog, &receiver, refuse);
        QVERIFY_EXCEPTION_THROWN(manager().getCatalog(id), std::runtime_error);
    }
    QCOMPARE(manager().getCatalog(id)->IsValid(), isReady);
    QCOMPARE(files.questions(id), isReady ? 1 : 2); // the catalog was in the cache before its receivers ran
}

void CatalogManagerTest::freesItsLocksWhenTheProviderThrows()
{
    ThrowingProvider files;
    const Signals sent;
    const QString id = text("nameless");
    files.add(id, m_folder.write(id, catalogXml(styleOf("-1"))));
    files.throws = true;
    QVERIFY_EXCEPTION_THROWN(manager().getCatalog(id), std::runtime_error);
    QVERIFY_EXCEPTION_THROWN(manager().is3DSupportedCatalog(id), std::runtime_error);
    QCOMPARE(sent.ready.count() + sent.failed.count(), 0);
    files.throws = false;
    QVERIFY(manager().getCatalog(id)->IsValid() && manager().is3DSupportedCatalog(id));
    QCOMPARE(sent.ready.count(), 1);
}

void CatalogManagerTest::servesManyThreads()
{
    constexpr int rounds = 50;
    const QString missing = text("no file");
    const QStringList ids = {text("hit"), text("miss 1"), text("miss 2"), text("miss 3")};
    const QStringList allIds = ids + QStringList{missing};
    FileTable files;
    const Signals sent;
    for (const QString &id : ids)
        files.add(id, m_folder.write(id, catalogXml(styleOf(id == text("miss 2") ? "0" : "-1"))));
    manager().getCatalog(text("hit"));
    std::atomic<int> wrongAnswers{0};
    std::vector<QHash<QString, QSet<Catalog *>>> catalogs(threadCount);
    runInThreads([&](int number) {
        for (int round = 0; round < rounds * allIds.size(); ++round) {
            const QString id = allIds.at((round + number) % allIds.size());
            const CatalogSptr catalog = manager().getCatalog(id);
            catalogs[static_cast<std::size_t>(number)][id].insert(catalog.data());
            if (catalog->IsValid() != (id != missing)
                || manager().is3DSupportedCatalog(id) != (id != missing && id != text("miss 2")))
                ++wrongAnswers;
        }
    });
    QCOMPARE(wrongAnswers.load(), 0);
    for (const auto &catalogsOfThread : catalogs) {
        for (const QString &id : ids)
            QCOMPARE(catalogsOfThread.value(id), QSet<Catalog *>{manager().getCatalog(id).data()});
    }
    QCOMPARE(sent.ready.count(), ids.size());
    QCOMPARE(sent.failed.count(), threadCount * rounds);
}

void CatalogManagerTest::letsQueuedReceiversAskForCatalogs()
{
    FileTable files;
    const Signals registersTypes;
    const QString id = text("queued");
    files.add(id, m_folder.write(id, catalogOf("C")));
    CatalogSptr announced;
    CatalogSptr failed;
    QObject receiver;
    const auto keep = [&](const CatalogSptr &catalog) {
        announced = manager().getCatalog(catalog->catalogId());
    };
    const auto tryAgain = [&](const QString &failedId) {
        if (!failed)
            failed = manager().getCatalog(failedId);
    };
    connect(&manager(), &CatalogManager::catalogReady, &receiver, keep, Qt::QueuedConnection);
    connect(&manager(), &CatalogManager::failedToLoadCatalog, &receiver, tryAgain, Qt::QueuedConnection);
    CatalogSptr returned;
    std::thread other([&id, &returned] {
        returned = manager().getCatalog(id);
        manager().getCatalog(text("queued failure"));
    });
    other.join();
    QVERIFY(!announced && !failed);
    QTRY_VERIFY(announced && failed);
    QVERIFY(returned->IsValid());
    QCOMPARE(announced, returned);
    QCOMPARE(failed->catalogId(), text("queued failure"));
}

void CatalogManagerTest::tellsWhether3DIsSupported_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("is3DSupported");

    for (const char *style : {"2147483648", "-1", "6442450944", "-2147483648"})
        QTest::newRow(style) << catalogXml(styleOf(style)) << true;
    for (const char *style :
         {"12", "2147483647", "4294967296", "-2147483649", "9223372036854775808", "3D", ""})
        QTest::addRow("not %s", style) << catalogXml(styleOf(style)) << false;
    const QByteArray style = "<CAT_Style>-1</CAT_Style>";
    const QByteArray info = styleOf("-1");
    const QByteArray none = "<CATALOG><CAT_PK>1</CAT_PK></CATALOG><CLASS/>";
    const auto row = [](const char *name, const QByteArray &content, bool is3DSupported) {
        QTest::newRow(name) << content << is3DSupported;
    };
    row("other root", "<OVCat>" + info + "</OVCat>", true);
    row("root in root", catalogXml("<OVCat>" + info + "</OVCat>"), true);
    row("behind records", catalogXml("<CLASS/>" + info), true);
    row("behind the information", catalogXml(none + style), true);
    row("malformed behind the style", "<OVCAT>" + info + "</CATALOG>", true);
    row("malformed before the style", "<OVCAT></CATALOG>" + info, false);
    row("no information", catalogXml("<CLASS/>" + style), false);
    row("in a later record", catalogXml(none + "<CLASS>" + style + "</CLASS>"), false);
    row("in second information", catalogXml(none + info), false);
    row("in another field", "<CATALOG><CAT_PK>" + style + "</CAT_PK></CATALOG>", false);
    row("behind an empty style", "<CATALOG><CAT_Style/>" + style + "</CATALOG>", false);
    row("in a wrapper", catalogXml("<X>" + info + "</X>"), false);
    row("other letter case", "<CATALOG><CAT_STYLE>-1</CAT_STYLE></CATALOG>", false);
    row("behind a comment", "<CATALOG><CAT_Style><!-- 3D -->-1</CAT_Style></CATALOG>", false);
    row("root is the information", info, true);
    row("no XML", "2147483648", false);
    row("empty file", "", false);
}

void CatalogManagerTest::tellsWhether3DIsSupported()
{
    QFETCH(QByteArray, content);
    FileTable files;
    const QString id = text("style, ") + text(QTest::currentDataTag());
    files.add(id, m_folder.write(text("style.xml"), content));
    QTEST(manager().is3DSupportedCatalog(id), "is3DSupported");
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
    m_folder.write(text("changing.xml"), catalogXml(styleOf("-1")));
    QVERIFY(manager().is3DSupportedCatalog(ids.at(2)));
    QCOMPARE(sent.ready.count() + sent.failed.count(), 0);
    for (const QString &id : ids)
        QVERIFY(manager().getCatalog(id)->IsValid());
    QCOMPARE(sent.ready.count(), ids.size());
    m_folder.write(text("changing.xml"), catalogXml(styleOf("0")));
    for (const QString &id : ids) {
        QCOMPARE(manager().is3DSupportedCatalog(id), id == ids.at(2));
        QCOMPARE(files.questions(id), id == ids.at(0) ? 1 : 2); // one for the catalog
    }
}

QTEST_GUILESS_MAIN(CatalogManagerTest)

#include "CatalogManagerTest.moc"
