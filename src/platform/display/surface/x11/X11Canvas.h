#pragma once

#include <QImage>
#include <QRegion>

#include <cstdint>
#include <memory>
#include <optional>

struct xcb_connection_t;

namespace kestro {

class SharedPixels;

/// Pixels that are put into an X11 window: from memory that the X server reads itself where it can, else sent
/// through the connection. Owned by the surface of that window; goes before the window does. Main thread;
/// pixels. Tested by X11DesktopTest.
class X11Canvas final {
public:
    /// Null where the window's pixels are none of ours (32 bits, blue first, no alpha), or memory is short.
    [[nodiscard]] static std::unique_ptr<X11Canvas> create(xcb_connection_t* connection, std::uint32_t window,
                                                           int guardRows);
    ~X11Canvas();
    X11Canvas(const X11Canvas&) = delete;
    X11Canvas& operator=(const X11Canvas&) = delete;

    /// Follows the window's size; the pixels are black after a change. False when memory is short.
    bool resize();

    [[nodiscard]] QSize size() const { return m_image.size(); }
    /// The pixels, to draw into. Waits until the server has read what was put before.
    [[nodiscard]] QImage& image();
    /// Shows that part of the pixels.
    void put(const QRegion& changed);

    /// Whether the server reads the pixels itself.
    [[nodiscard]] bool isShared() const { return m_shared != nullptr; }

private:
    X11Canvas(xcb_connection_t* connection, std::uint32_t window, int guardRows);

    void putShared(const QRect& rect);
    void putThroughConnection(const QRect& rect);
    void awaitRead();

    xcb_connection_t* m_connection;
    std::uint32_t m_window;
    int m_guardRows;
    std::uint32_t m_context = 0;
    std::unique_ptr<SharedPixels> m_shared; ///< goes after the image over it
    QImage m_image;
    std::optional<unsigned> m_fence; ///< a request after the last put; once answered the put was carried out
};

} // namespace kestro
