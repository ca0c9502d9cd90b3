// Loads for which memory runs out somewhere on the way, and the end of catalogs without memory.

#include "catalogs/access/CatalogManager.h"
#include "catalogs/building/CatalogLoader.h"

#include "reliability/FailingMemory.h"
#include "support/TestSupport.h"

#include <QLoggingCategory>
#include <QtTest>

#include <new>

using namespace Orvida::Catalogs;
using namespace Orvida::Tests;

namespace {

// Every kind of record, lists of every kind, texts that are logged, an orphan, and a loop of parents.
const char smallCatalog[] = R"(
CATPRO PK=P1;SortOrder=2
CATPRO PK=P2;SortOrder=1
CPX PK=x1;Profile_FK=P1;IsStart=true
COL Profile_FK=P1;Column_ID=WIDTH;DataType=DEC;Visible=true
COL Profile_FK=P2;Column_ID=WIDTH;DataType=DEC
LC PK=sizes;Profile_FK=P1;Class_ID=SIZES
LC PK=defects;Profile_FK=P1;Class_ID=LC_ID_CD
LIST Class_FK=sizes;Item=wide;Caption=a caption;SortOrder=2
LIST Class_FK=sizes;Item= ;SortOrder=1
LIST Class_FK=defects;Item=B01;Internal=Begin
CLASS PK=k;Item=a class of codes
BASECODE PK=b1;Class_FK=k;Code=AAA;Item=a base code;AutoPicture=no boolean
BASECODE PK=b2;Class_FK=none;Code=AAB;Item=an orphan
CHAREXT PK=c1;BaseCode_FK=b1;Code=AAA
CHAREXT PK=l1;CharExt_REF=l2
CHAREXT PK=l2;CharExt_REF=l1
PARAM PK=w;DataType=DEC;Caption=Width;Unit=mm
PARAMX PK=x;BaseCode_FK=b1;Param_FK=w;Column_ID=WIDTH;ListClass_ID=SIZES;InputFmt=0.0;RangeFrom=1;RangeTo=9
PARAMX PK=y;BaseCode_FK=none;Param_FK=w;Column_ID=WIDTH
)";

// Knows one file, and answers without taking memory.
struct OneFile : FileTable
{
    QString getCatalogFileName(const QString &) const override { return path; }
    QString path;
};

constexpr int never = 0;

CatalogManager &manager()
{
    return *CatalogManager::instance();
}

} // namespace

class OutOfMemoryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void leavesNothingOfAFailedLoad_data();
    void leavesNothingOfAFailedLoad();
    void tellsOfA3DStyleOnlyWhatItRead();
    void destroysCatalogsWithoutMemory();
    void destroysDeepTreesWithoutMemory();

private:
    CatalogFolder m_folder;
    OneFile m_files;
};

void OutOfMemoryTest::init()
{
    // The constructor of Qt's XML reader loses what it has taken when a later allocation of its own fails.
    FailingMemory::spare({"_ZN16QXmlStreamReaderC1Ev"});
    m_files.path = m_folder.write(text("small.xml"), catalogXml(recordsFrom(smallCatalog)));
    // The test's own way of logging takes memory. This one takes none.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
}

void OutOfMemoryTest::cleanup()
{
    QLoggingCategory::setFilterRules(QString());
    qInstallMessageHandler(nullptr);
}

void OutOfMemoryTest::leavesNothingOfAFailedLoad_data()
{
    QTest::addColumn<QString>("sample");
    QTest::addColumn<int>("step");
    QTest::addColumn<bool>("forGood");
    QTest::addColumn<bool>("logs");

    QTest::newRow("one allocation fails") << QString() << 1 << false << false;
    QTest::newRow("all fail from one on") << QString() << 1 << true << false;
    QTest::newRow("one fails, with all messages") << QString() << 1 << false << true;
    // A step that is prime to how often things repeat in the file.
    QTest::newRow("sample, one fails") << text(ORVIDA_SAMPLES "/tunnels.xml") << 53 << false << false;
    QTest::newRow("sample, all fail") << text(ORVIDA_SAMPLES "/tunnels.xml") << 53 << true << false;
}

void OutOfMemoryTest::leavesNothingOfAFailedLoad()
{
    QFETCH(QString, sample);
    QFETCH(int, step);
    QFETCH(bool, forGood);
    QFETCH(bool, logs);
    if (!sample.isEmpty())
        m_files.path = sample;
    if (logs)
        QLoggingCategory::setFilterRules(text("*=true"));
    int announced = 0;
    QObject receiver;
    connect(&manager(), &CatalogManager::catalogReady, &receiver, [&announced] { ++announced; });
    connect(&manager(), &CatalogManager::failedToLoadCatalog, &receiver, [&announced] { ++announced; });
    const auto load = [forGood](const QString &id, int first) {
        const StandardOutputCapture orphans;
        try {
            const FailingMemory failing(first, forGood);
            return manager().getCatalog(id);
        } catch (const std::bad_alloc &) {
            return CatalogSptr();
        }
    };

    // The first load and the first exception of a process leave things behind for the next ones.
    load(text("first, ") + text(QTest::currentDataTag()), never);
    load(text("second"), 1);
    int failures = 0;
    for (int first = 1;; first += step, ++failures) {
        const QString id = text("%1 %2").arg(text(QTest::currentDataTag())).arg(first);
        announced = 0;
        const int blocks = FailingMemory::liveBlocks();
        const CatalogSptr catalog = load(id, first);
        if (!FailingMemory::hasFailed())
            break;
        const int blocksLeft = FailingMemory::liveBlocks() - blocks;
        QVERIFY2(!catalog, qPrintable(id));
        QVERIFY2(blocksLeft == 0, qPrintable(text("%1: %2 blocks left").arg(id).arg(blocksLeft)));
        QCOMPARE(announced, 0);
        // With the lock still taken, this would never return.
        QVERIFY(load(id, never)->IsValid());
        QCOMPARE(announced, 1); // it was not in the cache
    }
    QVERIFY(failures > 50);
}

// A style that could not be read for lack of memory is asked for again.
void OutOfMemoryTest::tellsOfA3DStyleOnlyWhatItRead()
{
    m_files.path =
        m_folder.write(text("style.xml"), catalogXml("<CATALOG><CAT_Style>2147483648</CAT_Style></CATALOG>"));
    manager().is3DSupportedCatalog(text("first"));
    for (int first = 1;; ++first) {
        const QString id = QString::number(first);
        bool hasThrown = false;
        const int blocks = FailingMemory::liveBlocks();
        try {
            const FailingMemory failing(first, true);
            manager().is3DSupportedCatalog(id);
        } catch (const std::bad_alloc &) {
            hasThrown = true;
        }
        if (!FailingMemory::hasFailed())
            break;
        QCOMPARE(FailingMemory::liveBlocks(), blocks);
        QVERIFY(hasThrown);
        QVERIFY(manager().is3DSupportedCatalog(id));
    }
}

void OutOfMemoryTest::destroysCatalogsWithoutMemory()
{
    const StandardOutputCapture orphans;
    const int blocks = FailingMemory::liveBlocks();
    CatalogSptr catalog = CatalogLoader().loadCatalog(m_files.path, QString());
    const auto destroy = [&catalog] {
        const FailingMemory failing(1, true);
        catalog.clear();
    };
    for (const auto &item : catalog->getCatalogItems())
        item->getFields();
    destroy();
    QCOMPARE(FailingMemory::liveBlocks(), blocks);

    // The lists of the loop are copied, so there is no cutting it without memory.
    catalog = CatalogLoader().loadCatalog(m_files.path, QString());
    const auto item = catalog->getItemById(text("l1"));
    const auto children = item->getChildItems();
    const auto grandchildren = children.first()->getChildItems();
    QCOMPARE(grandchildren.first(), item);
    destroy();
    QVERIFY(FailingMemory::hasFailed());
    QVERIFY(!item->catalog());
    item->removeChildItem(children.first());
}

// Level by level on the stack, this would overflow it.
void OutOfMemoryTest::destroysDeepTreesWithoutMemory()
{
    auto top = QSharedPointer<CatalogItem>::create();
    QWeakPointer<CatalogItem> bottom = top;
    for (int level = 0; level < 100000; ++level) {
        const auto child = QSharedPointer<CatalogItem>::create();
        bottom.toStrongRef()->addChildItem(child);
        bottom = child;
    }
    {
        const FailingMemory failing(1, true);
        top.clear();
    }
    QVERIFY(bottom.isNull());
}

QTEST_GUILESS_MAIN(OutOfMemoryTest)

#include "OutOfMemoryTest.moc"
