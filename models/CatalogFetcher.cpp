#include "models/CatalogFetcher.h"

#include "catalogs/access/CatalogManager.h"

#include <QCoreApplication>
#include <QEvent>
#include <QSet>

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <thread>
#include <utility>

namespace Orvida::Models {

using Catalogs::CatalogManager;

namespace {

struct Request
{
    int number;
    QString catalogId;
};

struct Answer
{
    Request request;
    CatalogSptr catalog; // null when the load failed
    CatalogReadFailure failure;
};

Answer failedAnswer(const Request &request, const QString &exception)
{
    CatalogReadFailure failure;
    failure.reason = CatalogReadFailure::FileNotRead;
    failure.detail = exception;
    return {request, CatalogSptr(), failure};
}

// An exception must not leave the inner thread: it would end the process.
Answer answerTo(const Request &request)
{
    try {
        const CatalogSptr catalog = CatalogManager::instance()->getCatalog(request.catalogId);
        return {request, catalog->IsValid() ? catalog : CatalogSptr(), catalog->failure()};
    } catch (const std::exception &exception) {
        return failedAnswer(request, QString::fromLocal8Bit(exception.what()));
    } catch (...) {
        return failedAnswer(request, QStringLiteral("an exception ended the load"));
    }
}

} // namespace

struct CatalogFetcher::Private
{
    // Between the threads, guarded by the mutex.
    std::mutex mutex;
    std::condition_variable hasChanged;
    std::deque<Request> waiting;
    std::deque<Answer> answers; // an event is on its way for each
    bool isEnding = false;

    // Of the fetcher's own thread.
    QSet<int> pending;
    int lastRequest = 0;
    std::thread thread; // starts with the first request

    void answerRequests(CatalogFetcher *fetcher);
};

// What the inner thread does.
void CatalogFetcher::Private::answerRequests(CatalogFetcher *fetcher)
{
    std::unique_lock<std::mutex> lock(mutex);
    while (true) {
        hasChanged.wait(lock, [this] { return isEnding || !waiting.empty(); });
        if (isEnding)
            return;
        const Request request = waiting.front();
        waiting.pop_front();
        lock.unlock();
        Answer answer = answerTo(request);
        lock.lock();
        answers.push_back(std::move(answer));
        QCoreApplication::postEvent(fetcher, new QEvent(QEvent::User));
    }
}

CatalogFetcher::CatalogFetcher(QObject *parent) : QObject(parent), m_private(std::make_unique<Private>())
{
    // Makes the manager on this thread, not on the inner one, and before this fetcher: at the end of the
    // process it then goes after a static fetcher, which may be loading.
    CatalogManager::instance();
}

CatalogFetcher::~CatalogFetcher()
{
    {
        const std::lock_guard<std::mutex> lock(m_private->mutex);
        m_private->isEnding = true;
    }
    m_private->hasChanged.notify_one();
    if (m_private->thread.joinable())
        m_private->thread.join();
}

int CatalogFetcher::fetch(const QString &catalogId)
{
    if (!m_private->thread.joinable())
        m_private->thread = std::thread([this] { m_private->answerRequests(this); });
    const int request = ++m_private->lastRequest;
    m_private->pending.insert(request);
    {
        const std::lock_guard<std::mutex> lock(m_private->mutex);
        m_private->waiting.push_back({request, catalogId});
    }
    m_private->hasChanged.notify_one();
    return request;
}

bool CatalogFetcher::cancel(int request)
{
    if (!m_private->pending.remove(request))
        return false;
    const std::lock_guard<std::mutex> lock(m_private->mutex);
    std::deque<Request> &waiting = m_private->waiting;
    waiting.erase(std::remove_if(waiting.begin(), waiting.end(),
                                 [request](const Request &other) { return other.number == request; }),
                  waiting.end());
    return true;
}

void CatalogFetcher::cancelAll()
{
    m_private->pending.clear();
    const std::lock_guard<std::mutex> lock(m_private->mutex);
    m_private->waiting.clear();
}

int CatalogFetcher::pendingCount() const
{
    return m_private->pending.size();
}

// Answers one request. The receiver may destroy the fetcher.
void CatalogFetcher::customEvent(QEvent *)
{
    std::unique_lock<std::mutex> lock(m_private->mutex);
    if (m_private->answers.empty())
        return; // an event of somebody else
    const Answer answer = std::move(m_private->answers.front());
    m_private->answers.pop_front();
    lock.unlock();
    if (!m_private->pending.remove(answer.request.number))
        return;
    if (answer.catalog)
        Q_EMIT fetched(answer.request.number, answer.catalog);
    else
        Q_EMIT failed(answer.request.number, answer.request.catalogId, answer.failure);
}

} // namespace Orvida::Models
