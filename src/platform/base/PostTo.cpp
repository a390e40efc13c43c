#include "platform/base/PostTo.h"

#include <QMetaObject>
#include <QThreadPool>

#include <atomic>

namespace kestro {

namespace {

std::atomic<unsigned> mark{0};

/// What this thread did until now comes before what a thread does that takes over later.
void handOver()
{
    mark.fetch_add(1, std::memory_order_release);
}

void takeOver()
{
    static_cast<void>(mark.load(std::memory_order_acquire));
}

} // namespace

PostedFunction::PostedFunction(std::function<void()> run)
    : m_run(std::move(run))
{
    handOver();
}

PostedFunction::PostedFunction(const PostedFunction& other)
    : m_run(other.m_run)
{
    handOver();
}

PostedFunction::PostedFunction(PostedFunction&& other) noexcept
    : m_run(std::move(other.m_run))
{
    handOver();
}

/// It may be dropped unread, by whoever destroys the receiver.
PostedFunction::~PostedFunction()
{
    takeOver();
}

void PostedFunction::operator()() const
{
    takeOver();
    m_run();
    handOver(); // who posted it may be the last to let go of it
}

void postTo(QObject& receiver, std::function<void()> run)
{
    QMetaObject::invokeMethod(&receiver, PostedFunction(std::move(run)), Qt::QueuedConnection);
}

void runOn(QThreadPool& pool, std::function<void()> run)
{
    pool.start(PostedFunction(std::move(run)));
}

} // namespace kestro
