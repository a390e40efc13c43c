#include "config_ui/ProbeWorker.h"

#include <utility>

namespace kestro {

ProbeWorker::ProbeWorker(Read read, Deliver deliver)
    : m_read(std::move(read))
    , m_deliver(std::move(deliver))
    , m_thread([this](const std::stop_token& end) { work(end); })
{
}

ProbeWorker::~ProbeWorker()
{
    want({});
    m_thread.request_stop();
    m_thread.join();
}

void ProbeWorker::want(const QList<QUrl>& urls)
{
    const std::lock_guard lock(m_mutex);
    m_wanted = urls;
    const bool isReading = m_reading && !m_stopReading.stop_requested();
    if (isReading && m_wanted.removeAll(*m_reading) == 0) m_stopReading.request_stop();
    m_wanting.notify_one();
}

void ProbeWorker::work(const std::stop_token& end)
{
    std::unique_lock lock(m_mutex);
    while (m_wanting.wait(lock, end, [this] { return !m_wanted.isEmpty(); }))
        readNext(lock);
}

void ProbeWorker::readNext(std::unique_lock<std::mutex>& lock)
{
    const QUrl url = m_wanted.takeFirst();
    m_reading = url;
    m_stopReading = std::stop_source();
    const std::stop_token stop = m_stopReading.get_token();

    lock.unlock();
    const EntryFacts facts = m_read(url, stop);
    if (!stop.stop_requested()) m_deliver(url, facts);
    lock.lock();
    m_reading.reset();
}

} // namespace kestro
