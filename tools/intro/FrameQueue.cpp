#include "FrameQueue.h"

namespace kestro::intro {

int FrameQueue::next()
{
    const std::lock_guard lock(m_mutex);
    return m_failed || m_next == m_end ? -1 : m_next++;
}

void FrameQueue::write(int number, const std::vector<std::uint8_t>& bytes)
{
    std::unique_lock lock(m_mutex);
    m_turned.wait(lock, [&] { return m_turn == number; });
    const bool failed = m_failed;
    lock.unlock(); // the turn is ours alone, and the others may go on drawing
    const bool written = !failed && std::fwrite(bytes.data(), 1, bytes.size(), m_stream) == bytes.size();
    lock.lock();
    m_failed = m_failed || !written;
    ++m_turn;
    m_turned.notify_all();
}

bool FrameQueue::hasFailed()
{
    const std::lock_guard lock(m_mutex);
    return m_failed;
}

} // namespace kestro::intro
