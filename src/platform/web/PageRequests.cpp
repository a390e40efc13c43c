#include "platform/web/PageRequests.h"

#include "platform/base/Bounds.h"
#include "platform/base/PostTo.h"
#include "platform/network/Site.h"

#include <system_error>
#include <utility>

namespace kestro {

namespace {

FetchLimits limits()
{
    FetchLimits limits;
    limits.bytes = Bounds::webRequestBytes;
    return limits;
}

} // namespace

PageRequests::PageRequests(QUrl page, OnAnswer onAnswer)
    : m_page(std::move(page))
    , m_onAnswer(std::move(onAnswer))
{
}

PageRequests::~PageRequests()
{
    {
        const std::lock_guard lock(m_guard);
        m_isEnding = true;
    }
    if (m_fetch) m_fetch->cancel();
    m_changed.notify_all();
    if (m_worker.joinable()) m_worker.join();
}

void PageRequests::ask(quint32 request, const QUrl& url)
{
    if (const auto admitted = admit(url); !admitted) return m_onAnswer(request, admitted.failure());
    {
        const std::lock_guard lock(m_guard);
        m_wishes.push_back({request, url});
    }
    m_changed.notify_all();
    if (m_fetch) return;
    startWorker();
}

// Where the system has no more threads what was asked for so far gets no answer but that.
void PageRequests::startWorker()
{
    m_fetch = std::make_unique<SiteFetch>(limits());
    try {
        m_worker = std::thread([this] { work(); });
    } catch (const std::system_error&) {
        m_fetch.reset();
        for (const Wish& wish : std::exchange(m_wishes, {}))
            m_onAnswer(wish.request, Error{QStringLiteral("there is no thread to fetch it")});
    }
}

Result<void> PageRequests::admit(const QUrl& url)
{
    if (!isSameSite(url, m_page)) return Error{QStringLiteral("it is on another site")};
    const std::lock_guard lock(m_guard);
    if (m_wishes.size() >= Bounds::webRequestsWaiting) return Error{QStringLiteral("too many requests")};
    return {};
}

void PageRequests::work()
{
    while (true) {
        std::unique_lock lock(m_guard);
        m_changed.wait(lock, [this] { return m_isEnding || (!m_wishes.empty() && !m_isAnswering); });
        if (m_isEnding) return;
        const Wish wish = m_wishes.front();
        m_wishes.pop_front();
        m_isAnswering = true;
        lock.unlock();
        tellLater(wish.request, m_fetch->fetch(wish.url));
    }
}

void PageRequests::tellLater(quint32 request, Answer answer)
{
    postTo(m_context, [this, request, answer = std::move(answer)] {
        {
            const std::lock_guard lock(m_guard);
            m_isAnswering = false;
        }
        m_changed.notify_all();
        m_onAnswer(request, answer);
    });
}

} // namespace kestro
