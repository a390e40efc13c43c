#include "platform/movie/KeptFrame.h"

#include "platform/movie/AvFormat.h"

#include <utility>

namespace kestro {

void FrameMemory::add(std::size_t bytes)
{
    const std::size_t now = m_used += bytes;
    std::size_t peak = m_peak;
    while (now > peak && !m_peak.compare_exchange_weak(peak, now)) {
    }
}

std::size_t bytesOf(const AVFrame& frame)
{
    std::size_t bytes = 0;
    for (const AVBufferRef* buffer : frame.buf)
        bytes += buffer ? static_cast<std::size_t>(buffer->size) : 0;
    return bytes;
}

KeptFrame::KeptFrame(Frame frame, double seconds, int rotation, std::shared_ptr<FrameMemory> memory)
    : m_frame(std::move(frame))
    , m_seconds(seconds)
    , m_rotation(rotation)
    , m_bytes(bytesOf(*m_frame))
    , m_memory(std::move(memory))
{
    m_memory->add(m_bytes);
}

KeptFrame::~KeptFrame()
{
    if (m_memory) m_memory->remove(m_bytes);
}

KeptFrame& KeptFrame::operator=(KeptFrame&& other) noexcept
{
    std::swap(m_frame, other.m_frame);
    std::swap(m_seconds, other.m_seconds);
    std::swap(m_rotation, other.m_rotation);
    std::swap(m_bytes, other.m_bytes);
    std::swap(m_memory, other.m_memory);
    return *this;
}

} // namespace kestro
