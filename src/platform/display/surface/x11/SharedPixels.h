#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

struct xcb_connection_t;

namespace kestro {

/// Memory that this process and the X server have in common. Freed by the system even if this process is
/// killed. Owned by who reads or writes it. Main thread. Tested by X11DesktopTest.
class SharedPixels final {
public:
    /// What the server may do there.
    enum class Access { Read, ReadAndWrite };

    /// Zeroed, page aligned. Null where the server cannot reach this machine's memory, or there is none to be
    /// had.
    [[nodiscard]] static std::unique_ptr<SharedPixels> create(xcb_connection_t* connection, std::size_t bytes,
                                                              Access access = Access::Read);
    ~SharedPixels();
    SharedPixels(const SharedPixels&) = delete;
    SharedPixels& operator=(const SharedPixels&) = delete;

    [[nodiscard]] unsigned char* memory() const { return m_memory; }
    /// Its name in requests.
    [[nodiscard]] std::uint32_t segment() const { return m_segment; }

private:
    SharedPixels(xcb_connection_t* connection, unsigned char* memory, std::uint32_t segment);

    xcb_connection_t* m_connection;
    unsigned char* m_memory;
    std::uint32_t m_segment;
};

} // namespace kestro
