// Many threads use the library: each catalog is loaded once, all threads get the same object, and every load
// is announced. Also runs under the thread sanitizer, see preset tsan.

#include "catalogs/access/CatalogManager.h"
#include "catalogs/building/CatalogLoader.h"

#include "support/TestSupport.h"

#include <QtTest>

#include <future>
#include <vector>

using namespace Orvida::Catalogs;
using namespace Orvida::Tests;

namespace {

constexpr int threadCount = 64;
constexpr int catalogCount = 100;
constexpr int entryCount = 3; // list entries of a catalog, each logged when it is created

// Its column and its list are named A in the scrambled form.
QByteArray catalogWithStyle(const QByteArray &style)
{
    const QByteArray records = R"(
        <CATPRO><PRO_PK>P</PRO_PK></CATPRO>
        <COL><COL_Profile_FK>P</COL_Profile_FK><COL_Column_ID>05</COL_Column_ID><COL_DataType>TXT</COL_DataType>
          <COL_Visible>true</COL_Visible></COL>
        <LC><LC_PK>l</LC_PK><LC_Profile_FK>P</LC_Profile_FK><LC_Class_ID>05</LC_Class_ID></LC>
        <LIST><LIST_Class_FK>l</LIST_Class_FK><LIST_Item>a</LIST_Item></LIST>
        <LIST><LIST_Class_FK>l</LIST_Class_FK><LIST_Item>b</LIST_Item></LIST>
        <LIST><LIST_Class_FK>l</LIST_Class_FK><LIST_Item>c</LIST_Item></LIST>
        <BASECODE><BC_PK>B</BC_PK></BASECODE>
        <PARAMX><PX_PK>x</PX_PK><PX_BaseCode_FK>B</PX_BaseCode_FK><PX_Column_ID>A</PX_Column_ID>
          <PX_ListClass_ID>A</PX_ListClass_ID></PARAMX>)";
    return catalogXml("<CATALOG><CAT_Style>" + style + "</CAT_Style></CATALOG>" + records);
}

// Runs `task(0)` to `task(threadCount - 1)` on threads that start together, and returns their results.
template <typename Task>
auto onManyThreads(Task task)
{
    std::promise<void> start;
    const std::shared_future<void> started(start.get_future());
    std::vector<std::future<decltype(task(0))>> running;
    for (int thread = 0; thread < threadCount; ++thread) {
        running.push_back(std::async(std::launch::async, [=] {
            started.wait();
            return task(thread);
        }));
    }
    start.set_value();
    QVector<decltype(task(0))> results;
    for (auto &result : running)
        results.append(result.get());
    return results;
}

} // namespace

class ThreadsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void makeOneManager();
    void loadEachCatalogOnce();
};

// Must run first: the manager must not exist yet.
void ThreadsTest::makeOneManager()
{
    const auto managers = onManyThreads([](int) { return CatalogManager::instance(); });
    QCOMPARE(managers, QVector<CatalogManager *>(threadCount, CatalogManager::instance()));
}

// A quarter of the catalogs has no file and a quarter a truncated one; half of the others support 3D. Every
// thread reads a file with a loader of its own, asks for all styles and then for all catalogs, each starting
// with another one. The lock of the loads would hide races in what comes before them.
void ThreadsTest::loadEachCatalogOnce()
{
    const CatalogFolder folder;
    FileTable files;
    QStringList ids;
    for (int number = 0; number < catalogCount; ++number) {
        ids.append(QString::number(number));
        const QByteArray content = catalogWithStyle(number % 4 == 1 ? "-1" : "0");
        if (number % 4 < 3)
            files.add(ids.last(), folder.write(ids.last(), content.chopped(number % 4 == 2 ? 3 : 0)));
    }
    const LogCapture log;
    CatalogManager &manager = *CatalogManager::instance();
    // Emissions never overlap, so the counts need no lock of their own.
    QHash<QString, int> ready, failed;
    QObject receiver;
    connect(
        &manager, &CatalogManager::catalogReady, &receiver,
        [&ready](const CatalogSptr &catalog) { ++ready[catalog->catalogId()]; }, Qt::DirectConnection);
    connect(
        &manager, &CatalogManager::failedToLoadCatalog, &receiver,
        [&failed](const QString &id) { ++failed[id]; }, Qt::DirectConnection);

    using Answers = QMap<int, QPair<const Catalog *, bool>>; // by number: the catalog, null when it failed
    const auto answers = onManyThreads([&](int thread) {
        const CatalogSptr own = CatalogLoader().loadCatalog(folder.path(ids.first()), QString());
        const bool isWhole =
            own->getItemById(text("B"))->getFields().value(0).itemList().size() == entryCount;
        Answers found = {{catalogCount, {nullptr, isWhole}}};
        const auto numberAt = [thread](int step) { return (thread * 37 + step) % catalogCount; };
        for (int step = 0; step < catalogCount; ++step)
            found[numberAt(step)].second = manager.is3DSupportedCatalog(ids.at(numberAt(step)));
        for (int step = 0; step < catalogCount; ++step) {
            const CatalogSptr catalog = manager.getCatalog(ids.at(numberAt(step)));
            found[numberAt(step)].first = catalog->IsValid() ? catalog.data() : nullptr;
        }
        return found;
    });

    Answers expected = {{catalogCount, {nullptr, true}}};
    for (int number = 0; number < catalogCount; ++number) {
        const bool isLoadable = number % 4 < 2;
        QCOMPARE(ready.value(ids.at(number)), isLoadable ? 1 : 0);
        QCOMPARE(failed.value(ids.at(number)), isLoadable ? 0 : threadCount);
        const CatalogSptr catalog = manager.getCatalog(ids.at(number));
        QCOMPARE(catalog->IsValid(), isLoadable);
        // Truncated files still contain the style.
        expected.insert(number, {isLoadable ? catalog.data() : nullptr, number % 4 == 1});
    }
    QCOMPARE(answers, QVector<Answers>(threadCount, expected));
    const int loads = catalogCount / 2 + threadCount;
    QCOMPARE(log.messages().filter(text("Catalog item created")).size(), loads * entryCount);
}

QTEST_GUILESS_MAIN(ThreadsTest)

#include "ThreadsTest.moc"
