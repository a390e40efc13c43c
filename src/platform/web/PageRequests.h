#pragma once

#include "platform/network/SiteFetch.h"

#include <QObject>
#include <QUrl>

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

namespace kestro {

/// Fetches for one page of the web helper what lies on the page's own site, and nothing else: the helper has
/// no network. One request after the other, on a thread of its own, which is there from the first request on
/// and waits until the answer before has been told. Owned by the page's view, on whose thread it lives.
class PageRequests final {
public:
    using Answer = Result<SiteFetch::Content>;
    /// Told of each request later, from the event loop.
    using OnAnswer = std::function<void(quint32 request, const Answer& answer)>;

    PageRequests(QUrl page, OnAnswer onAnswer);
    /// Cancels what runs.
    ~PageRequests();
    PageRequests(const PageRequests&) = delete;
    PageRequests& operator=(const PageRequests&) = delete;

    void ask(quint32 request, const QUrl& url);

private:
    struct Wish {
        quint32 request = 0;
        QUrl url;
    };

    [[nodiscard]] Result<void> admit(const QUrl& url);
    void startWorker();
    void work();
    void tellLater(quint32 request, Answer answer);

    const QUrl m_page;
    const OnAnswer m_onAnswer;
    std::unique_ptr<SiteFetch> m_fetch; ///< made with the worker
    std::mutex m_guard;
    std::condition_variable_any m_changed;
    std::deque<Wish> m_wishes;  ///< guarded
    bool m_isAnswering = false; ///< guarded: an answer is under way to the page's thread
    bool m_isEnding = false;    ///< guarded
    std::thread m_worker;
    QObject m_context; ///< what is posted goes with it
};

} // namespace kestro
