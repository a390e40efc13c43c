#pragma once

#include <QImage>
#include <QRect>

#include <cstdint>
#include <memory>
#include <vector>

struct xcb_connection_t;

namespace kestro {

class SharedPixels;

/// A copy in memory of a pixmap that another program draws in, brought up to date part by part: the X server
/// writes it there itself where it can, else sends it. Owned by the window of that pixmap; goes before the
/// connection does. Main thread; pixels. Tested by HackHostTest.
class PixmapPixels final {
public:
    /// Null where memory is short.
    [[nodiscard]] static std::unique_ptr<PixmapPixels> create(xcb_connection_t* connection,
                                                              std::uint32_t pixmap, QSize size);
    ~PixmapPixels();
    PixmapPixels(const PixmapPixels&) = delete;
    PixmapPixels& operator=(const PixmapPixels&) = delete;

    /// RGB32; black where nothing was fetched yet.
    [[nodiscard]] const QImage& image() const { return m_image; }
    /// Copies those parts, which do not overlap. False when the server refused one: the pixmap is no more.
    bool fetch(const std::vector<QRect>& parts);

    /// Whether the server writes the pixels itself.
    [[nodiscard]] bool isShared() const { return m_shared != nullptr; }

private:
    struct Request;

    PixmapPixels(xcb_connection_t* connection, std::uint32_t pixmap);

    [[nodiscard]] bool allocate(QSize size);
    bool fetchShared(const std::vector<QRect>& parts);
    [[nodiscard]] Request request(const QRect& part, std::size_t& scratch);
    bool finish(const Request& request);
    bool fetchThroughConnection(const QRect& part);
    void copyRows(const QRect& part, const unsigned char* pixels);

    xcb_connection_t* m_connection;
    std::uint32_t m_pixmap;
    std::unique_ptr<SharedPixels> m_shared; ///< goes after the image over it
    QImage m_image;
};

} // namespace kestro
