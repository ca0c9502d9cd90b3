// Loads during which memory runs out, in our code or below it, and the destruction of catalogs without
// memory.

#include "catalogs/access/CatalogManager.h"
#include "catalogs/building/CatalogLoader.h"

#include "support/TestSupport.h"

#include <QLoggingCategory>
#include <QXmlStreamReader>
#include <QtTest>

#include <cerrno>
#include <cstdlib>
#include <new>
#include <utility>

using namespace Orvida::Catalogs;
using namespace Orvida::Tests;

// The functions below replace those of the C library, or of a sanitizer, for the whole process.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define ORIGINAL(function) __interceptor_##function
#else
#define ORIGINAL(function) __libc_##function
#endif

extern "C" {
void *ORIGINAL(malloc)(size_t);
void *ORIGINAL(calloc)(size_t, size_t);
void *ORIGINAL(realloc)(void *, size_t);
void ORIGINAL(free)(void *);
}

namespace {

// While it exists, allocation number `first` of the calling thread, counted from 1, fails; if `forGood` is
// set, so do all later ones. One at a time.
struct FailingMemory
{
    FailingMemory(int first, bool forGood)
    {
        hasFailed = false;
        failsForGood = forGood;
        left = first;
    }
    ~FailingMemory() { left = never; }

    static bool fails()
    {
        if (left == never || --left > 0)
            return false;
        left = failsForGood ? 1 : never;
        hasFailed = true;
        errno = ENOMEM;
        return true;
    }

    static constexpr int never = 0;
    static thread_local int left;
    static thread_local bool failsForGood;
    static thread_local bool hasFailed;
    static thread_local int blocks; // that the thread holds; only differences mean something
};

thread_local int FailingMemory::left = never;
thread_local bool FailingMemory::failsForGood = false;
thread_local bool FailingMemory::hasFailed = false;
thread_local int FailingMemory::blocks = 0;

} // namespace

extern "C" {

void *malloc(size_t size)
{
    void *block = FailingMemory::fails() ? nullptr : ORIGINAL(malloc)(size);
    FailingMemory::blocks += block != nullptr;
    return block;
}

void *calloc(size_t count, size_t size)
{
    void *block = FailingMemory::fails() ? nullptr : ORIGINAL(calloc)(count, size);
    FailingMemory::blocks += block != nullptr;
    return block;
}

void *realloc(void *block, size_t size)
{
    void *moved = FailingMemory::fails() ? nullptr : ORIGINAL(realloc)(block, size);
    FailingMemory::blocks += !block && moved;
    return moved;
}

void free(void *block)
{
    FailingMemory::blocks -= block != nullptr;
    ORIGINAL(free)(block);
}

// The leak checker recognises allocations of the dynamic linker by their caller, which is now a function
// above. Qt's leaks are counted below.
const char *__lsan_default_suppressions();
const char *__lsan_default_suppressions()
{
    return "leak:_dl_\nleak:libQt5Core";
}
}

// Those of the sanitizers would not call the functions above.
void *operator new(size_t size)
{
    void *block = malloc(size);
    return block ? block : throw std::bad_alloc();
}

void operator delete(void *block) noexcept
{
    free(block);
}

void operator delete(void *block, size_t) noexcept
{
    free(block);
}

namespace {

// Repeats `task`, each time with the failure one allocation later, until none fails any more. Tells `check`
// whether bad_alloc was thrown. Gives the number of blocks that leaked.
template <typename Task, typename Check>
int lostWhileMemoryRunsOut(bool forGood, Task task, Check check)
{
    int lost = 0;
    for (int first = 1;; ++first) {
        const int blocks = FailingMemory::blocks;
        bool hasThrown = false;
        try {
            const FailingMemory failing(first, forGood);
            task(first);
        } catch (const std::bad_alloc &) {
            hasThrown = true;
        }
        if (!FailingMemory::hasFailed)
            return lost;
        lost += FailingMemory::blocks - blocks;
        check(first, hasThrown);
    }
}

// The constructor of Qt's XML reader leaks what it has allocated when a later allocation of its own fails.
int lostByQt(bool forGood)
{
    return lostWhileMemoryRunsOut(
        forGood, [](int) { QXmlStreamReader reader; }, [](int, bool) {});
}

CatalogManager &manager()
{
    return *CatalogManager::instance();
}

// Knows one file, and answers without allocating memory.
struct OneFile : FileTable
{
    QString getCatalogFileName(const QString &) const override { return path; }
    QString path;
};

} // namespace

class OutOfMemoryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // QtTest's message handler allocates memory. This one does not.
    void initTestCase()
    {
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    }
    void leavesNothingOfAFailedLoad_data();
    void leavesNothingOfAFailedLoad();
    void destroysCatalogsWithoutMemory();

private:
    CatalogFolder m_folder;
    OneFile m_file;
};

void OutOfMemoryTest::leavesNothingOfAFailedLoad_data()
{
    QTest::addColumn<QString>("catalog");
    QTest::addColumn<bool>("forGood");
    QTest::addColumn<bool>("logs");
    for (const char *catalog : {"every-field", "tree", "loops"}) {
        QTest::addRow("%s, one allocation fails", catalog) << catalog << false << false;
        QTest::addRow("%s, all fail from one on", catalog) << catalog << true << false;
    }
    QTest::newRow("lists, one allocation fails, with all messages") << "lists" << false << true;
}

// A load or style query that failed is not cached: the next one starts again. If the lock were still held, it
// would never return.
void OutOfMemoryTest::leavesNothingOfAFailedLoad()
{
    QFETCH(QString, catalog);
    QFETCH(bool, forGood);
    QFETCH(bool, logs);
    m_file.path =
        m_folder.write(catalog, scrambledCatalog(QFINDTESTDATA(text("../catalogs/%1.xml").arg(catalog))));
    QLoggingCategory::setFilterRules(text(logs ? "*=true" : "*=false"));
    int announced = 0;
    QObject receiver;
    connect(&manager(), &CatalogManager::catalogReady, &receiver, [&announced] { ++announced; });
    connect(&manager(), &CatalogManager::failedToLoadCatalog, &receiver, [&announced] { ++announced; });
    QStringList ids; // made while there is memory
    for (int number = 0; number < 3000; ++number)
        ids += text("%1 %2").arg(text(QTest::currentDataTag())).arg(number);
    const auto load = [&](int number) {
        const StandardOutputTo orphans("/dev/null");
        return manager().getCatalog(ids.at(number))->IsValid();
    };
    const auto askForStyle = [&](int number) { manager().is3DSupportedCatalog(ids.at(number)); };
    // The first load and the first exception of a process allocate what later ones use again.
    load(0);
    askForStyle(0);
    lostByQt(forGood);

    int failures = 0;
    const int lost = lostWhileMemoryRunsOut(forGood, load, [&](int number, bool hasThrown) {
        ++failures;
        QVERIFY2(hasThrown && announced == 1, qPrintable(ids.at(number)));
        QVERIFY(load(number));
        QCOMPARE(announced, 2); // it was not in the cache
        announced = 1;
    });
    QCOMPARE(lost, lostByQt(forGood));
    QVERIFY2(failures > 50, qPrintable(QString::number(failures)));
    QCOMPARE(lostWhileMemoryRunsOut(
                 forGood, askForStyle,
                 [&](int number, bool hasThrown) { QVERIFY2(hasThrown, qPrintable(ids.at(number))); }),
             lostByQt(forGood));
}

// A long chain of items, and an item that is its own parent.
void OutOfMemoryTest::destroysCatalogsWithoutMemory()
{
    const auto record = [](int id, int parentId) {
        return "<CHAREXT><CE_PK>" + QByteArray::number(id) + "</CE_PK><CE_CharExt_REF>"
               + QByteArray::number(parentId) + "</CE_CharExt_REF></CHAREXT>";
    };
    QByteArray records = record(-1, -1);
    for (int level = 1; level < 100000; ++level)
        records += record(level, level - 1);
    records += "<CLASS><CLASS_PK>0</CLASS_PK></CLASS>";
    const QString loopId = text("-1");
    // How many blocks the destruction of `catalog` frees.
    const auto destroy = [](CatalogSptr catalog, int firstFailing) {
        const int blocks = FailingMemory::blocks;
        const FailingMemory failing(firstFailing, true);
        catalog.clear();
        return blocks - FailingMemory::blocks;
    };
    const int released = destroy(loaded(records), 1);
    QVERIFY(!FailingMemory::hasFailed);
    QCOMPARE(released, destroy(loaded(records), FailingMemory::never));

    // The child list of the loop is copied, so the loop cannot be cut without memory.
    CatalogSptr catalog = loaded(records);
    const auto item = catalog->getItemById(loopId);
    const auto children = item->getChildItems();
    destroy(std::move(catalog), 1);
    QVERIFY(FailingMemory::hasFailed && !item->catalog());
    QCOMPARE(item->getChildItems().first(), item);
    item->removeChildItem(item);
}

QTEST_GUILESS_MAIN(OutOfMemoryTest)

#include "OutOfMemoryTest.moc"
