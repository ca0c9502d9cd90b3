// The fetcher: what it delivers, in which order and on which thread, and that nobody waits for it. Runs under
// the thread sanitizer as well, see preset tsan.

#include "models/CatalogFetcher.h"

#include "catalogs/access/CatalogConfigData.h"
#include "catalogs/access/CatalogManager.h"
#include "support/TestSupport.h"

#include <QThread>
#include <QtTest>

#include <chrono>
#include <condition_variable>
#include <future>
#include <mutex>
#include <stdexcept>
#include <thread>

using namespace Orvida::Catalogs;
using namespace Orvida::Models;
using namespace Orvida::Tests;

namespace {

// A provider whose answers wait while the gate is closed, so that a load lasts as long as a test likes. It
// throws for two identifiers.
class GatedFiles : public FileTable
{
public:
    ~GatedFiles() override { open(); }

    void close() { set(true); }
    void open() { set(false); }
    // Whether a load has come to the gate, waited for.
    bool isReached()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        return m_changed.wait_for(lock, std::chrono::seconds(10), [this] { return m_waiting > 0; });
    }

    QString getCatalogFileName(const QString &catalogId) const override
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        ++m_waiting;
        m_changed.notify_all();
        m_changed.wait(lock, [this] { return !m_isClosed; });
        --m_waiting;
        lock.unlock();
        if (catalogId == text("throws"))
            throw std::runtime_error("provider gave up");
        if (catalogId == text("throws a number"))
            throw 1;
        return FileTable::getCatalogFileName(catalogId);
    }

private:
    void set(bool isClosed)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isClosed = isClosed;
        m_changed.notify_all();
    }

    mutable std::mutex m_mutex;
    mutable std::condition_variable m_changed;
    bool m_isClosed = false;
    mutable int m_waiting = 0;
};

} // namespace

// The manager keeps what it loaded, so each test has identifiers of its own.
class CatalogFetcherTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void takesTheManagerBeforeItsThreadDoes();
    void deliversInOrderOnTheThreadOfItsOwner();
    void keepsNobodyWaiting();
    void tellsWhyACatalogFailed();
    void withdrawsRequests();
    void maySendAndGoInsideASignal();
    void dropsItsRequestsWhenItGoes();

private:
    QString addCatalog(const QString &id)
    {
        m_files->add(id, m_folder.write(id, catalogXml("<CLASS><CLASS_PK>C</CLASS_PK></CLASS>\n")));
        return id;
    }

    CatalogFolder m_folder;
    std::unique_ptr<GatedFiles> m_files;
    std::unique_ptr<CatalogFetcher> m_fetcher;
    QStringList m_told; // "number id" in the order of the signals, failures with their reason
};

void CatalogFetcherTest::init()
{
    m_files = std::make_unique<GatedFiles>();
    m_fetcher = std::make_unique<CatalogFetcher>();
    m_told.clear();
    // Direct connections: they run where the signal is sent.
    connect(
        m_fetcher.get(), &CatalogFetcher::fetched, this,
        [this](int request, const CatalogSptr &catalog) {
            QCOMPARE(QThread::currentThread(), thread());
            QVERIFY(catalog->IsValid());
            m_told << text("%1 %2").arg(request).arg(catalog->catalogId());
        },
        Qt::DirectConnection);
    connect(
        m_fetcher.get(), &CatalogFetcher::failed, this,
        [this](int request, const QString &catalogId, const CatalogReadFailure &failure) {
            QCOMPARE(QThread::currentThread(), thread());
            m_told << text("%1 %2: %3").arg(request).arg(catalogId, failure.problem());
        },
        Qt::DirectConnection);
}

void CatalogFetcherTest::cleanup()
{
    m_files->open();
    m_fetcher.reset();
    m_files.reset();
}

// The first test, so that nobody else has taken it.
void CatalogFetcherTest::takesTheManagerBeforeItsThreadDoes()
{
    m_fetcher->fetch(addCatalog(text("first")));
    QTRY_COMPARE(m_told, QStringList(text("1 first")));
    QCOMPARE(CatalogManager::instance()->thread(), thread());
}

void CatalogFetcherTest::deliversInOrderOnTheThreadOfItsOwner()
{
    for (const char *id : {"order b", "order a", "order b", "order c"})
        m_fetcher->fetch(addCatalog(text(id)));
    QCOMPARE(m_told, QStringList());
    QCOMPARE(m_fetcher->pendingCount(), 4);
    QEvent foreign(QEvent::User);
    QCoreApplication::sendEvent(m_fetcher.get(), &foreign);
    QTRY_COMPARE(m_told.join(QLatin1Char('|')), text("1 order b|2 order a|3 order b|4 order c"));
    QCOMPARE(m_fetcher->pendingCount(), 0);
}

// A load that does not end keeps the manager's lock; this thread goes on, and hears of it later.
void CatalogFetcherTest::keepsNobodyWaiting()
{
    m_files->close();
    m_fetcher->fetch(addCatalog(text("waiting")));
    QVERIFY(m_files->isReached());
    m_fetcher->fetch(text("waiting"));
    QCoreApplication::processEvents();
    QCOMPARE(m_fetcher->pendingCount(), 2);
    m_files->open();
    QTRY_COMPARE(m_told.join(QLatin1Char('|')), text("1 waiting|2 waiting"));
}

void CatalogFetcherTest::tellsWhyACatalogFailed()
{
    m_fetcher->fetch(text("unknown"));
    m_files->add(text("cut"), m_folder.write(text("cut"), catalogXml("").chopped(3)));
    m_fetcher->fetch(text("cut"));
    m_fetcher->fetch(text("throws"));
    m_fetcher->fetch(text("throws a number"));
    m_fetcher->fetch(addCatalog(text("good")));
    QTRY_COMPARE(m_told.join(QLatin1Char('|')),
                 text("1 unknown: cannot read the file: No such file or directory|"
                      "2 cut: not well-formed XML: Premature end of document.|"
                      "3 throws: cannot read the file: provider gave up|"
                      "4 throws a number: cannot read the file: an exception ended the load|5 good"));
}

// One that is loading, whose catalog is kept, and one that waits and is then not even looked for.
void CatalogFetcherTest::withdrawsRequests()
{
    m_files->close();
    m_fetcher->fetch(addCatalog(text("running")));
    QVERIFY(m_files->isReached());
    m_fetcher->fetch(addCatalog(text("waiting")));
    m_fetcher->fetch(addCatalog(text("last")));
    QVERIFY(m_fetcher->cancel(1) && m_fetcher->cancel(2));
    QVERIFY(!m_fetcher->cancel(1) && !m_fetcher->cancel(0) && !m_fetcher->cancel(4));
    QCOMPARE(m_fetcher->pendingCount(), 1);
    m_files->open();
    QTRY_COMPARE(m_told, QStringList(text("3 last")));
    QVERIFY(!m_fetcher->cancel(3));
    QVERIFY(m_files->questions(text("running")) == 1 && m_files->questions(text("waiting")) == 0);
    m_fetcher->fetch(text("running"));
    m_fetcher->cancelAll();
    m_fetcher->fetch(text("running"));
    QTRY_COMPARE(m_told.join(QLatin1Char('|')), text("3 last|5 running"));
    QCOMPARE(m_files->questions(text("running")), 1);
}

void CatalogFetcherTest::maySendAndGoInsideASignal()
{
    connect(m_fetcher.get(), &CatalogFetcher::fetched, this, [this](int request) {
        if (request == 1)
            m_fetcher->fetch(text("again"));
        else
            m_fetcher.reset();
    });
    m_fetcher->fetch(addCatalog(text("again")));
    m_fetcher->fetch(addCatalog(text("not delivered")));
    m_fetcher->cancel(2);
    QTRY_VERIFY(!m_fetcher);
    QCOMPARE(m_told.join(QLatin1Char('|')), text("1 again|3 again"));
}

void CatalogFetcherTest::dropsItsRequestsWhenItGoes()
{
    m_files->close();
    for (const char *id : {"dropped a", "dropped b"})
        m_fetcher->fetch(addCatalog(text(id)));
    QVERIFY(m_files->isReached());
    const auto opened = std::async(std::launch::async, [this] {
        std::this_thread::sleep_for(
            std::chrono::milliseconds(200)); // meanwhile the fetcher waits for its load
        m_files->open();
    });
    m_fetcher.reset();
    QCoreApplication::processEvents();
    QCOMPARE(m_told, QStringList());
    QCOMPARE(m_files->questions(text("dropped b")), 0);
    CatalogFetcher unused;
}

QTEST_GUILESS_MAIN(CatalogFetcherTest)

#include "CatalogFetcherTest.moc"
