#pragma once

#include <QSize>

#include <memory>

struct wl_buffer;
struct wl_shm;

namespace kestro {

/// A picture of which nothing is seen, for a surface that is to stay where it is. It takes no memory before
/// the compositor reads it. Main thread. Tested by test_overlay.
class ClearBuffer final {
public:
    /// Null where there is no memory for it, and for an empty one.
    [[nodiscard]] static std::unique_ptr<ClearBuffer> create(wl_shm* memory, QSize size);
    ~ClearBuffer();
    ClearBuffer(const ClearBuffer&) = delete;
    ClearBuffer& operator=(const ClearBuffer&) = delete;

    [[nodiscard]] wl_buffer* buffer() const { return m_buffer; }

private:
    explicit ClearBuffer(wl_buffer* buffer)
        : m_buffer(buffer)
    {
    }

    wl_buffer* m_buffer;
};

} // namespace kestro
