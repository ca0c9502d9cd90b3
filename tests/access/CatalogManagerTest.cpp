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
    void isOneObjectForAllThreads();
    void describesItsSignals();
    void loadsOncePerIdentifier();
    void triesAFailedCatalogAgain();
    void announcesBeforeItReturns_data();
    void announcesBeforeItReturns();
    void freesItsLocksWhenTheHostThrows();
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
    std::array<CatalogManager *, threadCount> managers{};
    runInThreads([&managers](int number) { managers[number] = CatalogManager::instance(); });
    for (CatalogManager *made : managers)
        QVERIFY(made && made == CatalogManager::instance() && !made->parent());
}

// Stands before any test that registers the types of the parameters.
void CatalogManagerTest::describesItsSignals()
{
    const QMetaObject *meta = manager().metaObject();
    QCOMPARE(meta->className(), "Orvida::Catalogs::CatalogManager");
    QCOMPARE(meta->superClass(), &QObject::staticMetaObject);
    QCOMPARE(manager().qt_metacast("Orvida::Catalogs::CatalogManager"), static_cast<void *>(&manager()));
    QCOMPARE(meta->methodCount() - meta->methodOffset(), 2);
    QCOMPARE(meta->propertyCount(), meta->propertyOffset());
    QCOMPARE(meta->enumeratorCount() + meta->classInfoCount() + meta->constructorCount(), 0);
    const QByteArrayList expected = {"void catalogReady(CatalogSptr) CatalogSptr catalog",
                                     "void failedToLoadCatalog(Orvida::Base::GUID) Orvida::Base::GUID "};
    for (int index = 0; index < 2; ++index) {
        const QMetaMethod method = meta->method(meta->methodOffset() + index);
        const QByteArray type = method.parameterTypes().join('|');
        QCOMPARE(QByteArray(method.typeName()) + ' ' + method.methodSignature() + ' ' + type + ' '
                     + method.parameterNames().join('|'),
                 expected.at(index));
        QCOMPARE(method.methodType(), QMetaMethod::Signal);
        int typeId = 0;
        int parameter = 0;
        void *query[] = {&typeId, &parameter};
        manager().qt_metacall(QMetaObject::RegisterMethodArgumentMetaType, method.methodIndex(), query);
        QCOMPARE(typeId, -1);
        // The static call leaves the answer to a question that it does not know as it is.
        meta->static_metacall(QMetaObject::RegisterMethodArgumentMetaType, index, query);
        QCOMPARE(typeId, -1);
        QCOMPARE(QMetaType::type(type), int(QMetaType::UnknownType));
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
    m_folder.write(id, catalogOf("C"));
    const CatalogSptr loaded = manager().getCatalog(id);
    QVERIFY(loaded->IsValid());
    QCOMPARE(manager().getCatalog(id), loaded);
    QVERIFY(sent.ready.count() == 1 && sent.failed.count() == 4);
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
    files.add(id, m_folder.write(id, catalogXml(styleOf("-1"))));
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
    constexpr int rounds = 50;
    const QStringList ids = {text("solid 1"), text("solid 2"), text("flat"), text("no file")};
    FileTable files;
    const Signals sent;
    for (const QString &id : ids.mid(0, 3))
        files.add(id, m_folder.write(id, catalogXml(styleOf(id == text("flat") ? "0" : "-1"))));
    manager().getCatalog(ids.first());
    std::atomic<int> wrongAnswers{0};
    std::array<QSet<Catalog *>, threadCount> catalogs;
    runInThreads([&](int number) {
        for (int round = 0; round < rounds * ids.size(); ++round) {
            const QString id = ids.at((round + number) % ids.size());
            const CatalogSptr catalog = manager().getCatalog(id);
            if (catalog->IsValid())
                catalogs[number].insert(catalog.data());
            if (catalog->catalogId() != id || catalog->IsValid() == (id == ids.last())
                || manager().is3DSupportedCatalog(id) != id.startsWith(text("solid")))
                ++wrongAnswers;
        }
    });
    QCOMPARE(wrongAnswers.load(), 0);
    for (const auto &catalogsOfThread : catalogs)
        QCOMPARE(catalogsOfThread, catalogs.front());
    QCOMPARE(catalogs.front().size(), 3);
    QCOMPARE(sent.ready.count(), 3); // each was loaded once
    QCOMPARE(sent.failed.count(), threadCount * rounds);
}

void CatalogManagerTest::letsQueuedReceiversAskForCatalogs()
{
    FileTable files;
    const Signals registersTypes;
    files.add(text("queued"), m_folder.write(text("queued"), catalogOf("C")));
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
    std::thread other([&returned] {
        returned = manager().getCatalog(text("queued"));
        manager().getCatalog(text("queued failure"));
    });
    other.join();
    QVERIFY(returned->IsValid() && !announced && !failed);
    QTRY_VERIFY(announced && failed);
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
    row("root in root, behind records", catalogXml("<CLASS/><OVCat>" + info + "</OVCat>"), true);
    row("behind the information", catalogXml(none + style), true);
    row("malformed behind the style", "<OVCAT>" + info + "</CATALOG>", true);
    row("malformed before the style", "<OVCAT></CATALOG>" + info, false);
    row("no information", catalogXml("<CLASS/>" + style), false);
    row("in a later record", catalogXml(none + "<CLASS>" + style + "</CLASS>"), false);
    row("in second information", catalogXml(none + info), false);
    row("in another field", "<CATALOG><CAT_PK>" + style + "</CAT_PK></CATALOG>", false);
    row("behind an empty style", "<CATALOG><CAT_Style/>" + style + "</CATALOG>", false);
    row("in a wrapper", catalogXml("<X>" + info + "</X>"), false);
    row("behind a comment", "<CATALOG><CAT_Style><!-- 3D -->-1</CAT_Style></CATALOG>", false);
    row("root is the information", info, true);
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
        QVERIFY(manager().getCatalog(id)->IsValid() && !sent.ready.isEmpty());
    m_folder.write(text("changing.xml"), catalogXml(styleOf("0")));
    for (const QString &id : ids) {
        QCOMPARE(manager().is3DSupportedCatalog(id), id == ids.at(2));
        QCOMPARE(files.questions(id), id == ids.at(0) ? 1 : 2); // one for the catalog
    }
}

QTEST_GUILESS_MAIN(CatalogManagerTest)

#include "CatalogManagerTest.moc"
