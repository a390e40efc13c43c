#include "platform/display/surface/x11/X11Canvas.h"

#include "platform/display/surface/x11/SharedPixels.h"
#include "platform/display/surface/x11/X11Connection.h"
#include "platform/display/surface/x11/X11PixelFormat.h"
#include "platform/display/view/AlignedImage.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <vector>
#include <xcb/shm.h>
#include <xcb/xcb.h>

namespace kestro {

namespace {

bool isSuited(xcb_connection_t* connection, xcb_window_t window)
{
    const auto geometry = geometryOf(connection, window);
    const ReplyPtr<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(connection, xcb_get_window_attributes(connection, window), nullptr),
        &std::free);
    if (!geometry || !attributes || geometry->depth != plainDepth) return false;
    const xcb_setup_t* setup = xcb_get_setup(connection);
    return hasOurFormat(setup) && isBlueFirst(setup, attributes->visual);
}

} // namespace

std::unique_ptr<X11Canvas> X11Canvas::create(xcb_connection_t* connection, std::uint32_t window,
                                             int guardRows)
{
    if (!isSuited(connection, window)) return nullptr;
    std::unique_ptr<X11Canvas> canvas(new X11Canvas(connection, window, guardRows));
    return canvas->resize() ? std::move(canvas) : nullptr;
}

X11Canvas::X11Canvas(xcb_connection_t* connection, std::uint32_t window, int guardRows)
    : m_connection(connection)
    , m_window(window)
    , m_guardRows(guardRows)
    , m_context(xcb_generate_id(connection))
{
    const std::uint32_t noExposures = 0;
    xcb_create_gc(m_connection, m_context, m_window, XCB_GC_GRAPHICS_EXPOSURES, &noExposures);
}

X11Canvas::~X11Canvas()
{
    awaitRead();
    xcb_free_gc(m_connection, m_context);
}

bool X11Canvas::resize()
{
    const auto geometry = geometryOf(m_connection, m_window);
    if (!geometry) return false;
    const QSize size(geometry->width, geometry->height);
    if (size == m_image.size()) return true;
    awaitRead();
    m_image = {};
    const int stride = alignedStride(size.width());
    m_shared = SharedPixels::create(m_connection, size_t(stride) * size_t(size.height() + m_guardRows));
    m_image = m_shared ? QImage(m_shared->memory(), size.width(), size.height(), stride, QImage::Format_RGB32)
                       : alignedImage(size, QImage::Format_RGB32, m_guardRows);
    return !m_image.isNull();
}

QImage& X11Canvas::image()
{
    awaitRead();
    return m_image;
}

void X11Canvas::put(const QRegion& changed)
{
    if (m_fence) xcb_discard_reply(m_connection, *m_fence);
    m_fence.reset();
    for (const QRect& rect : changed& m_image.rect()) {
        if (m_shared)
            putShared(rect);
        else
            putThroughConnection(rect);
    }
    // The server answers in order. This answer is fetched only before the pixels are written again, and is
    // long there.
    if (m_shared) m_fence = xcb_get_input_focus(m_connection).sequence;
    xcb_flush(m_connection);
}

void X11Canvas::putShared(const QRect& rect)
{
    const auto x = static_cast<std::int16_t>(rect.x());
    const auto y = static_cast<std::int16_t>(rect.y());
    xcb_shm_put_image(m_connection, m_window, m_context,
                      static_cast<std::uint16_t>(m_image.bytesPerLine() / 4),
                      static_cast<std::uint16_t>(m_image.height()), static_cast<std::uint16_t>(rect.x()),
                      static_cast<std::uint16_t>(rect.y()), static_cast<std::uint16_t>(rect.width()),
                      static_cast<std::uint16_t>(rect.height()), x, y, plainDepth, XCB_IMAGE_FORMAT_Z_PIXMAP,
                      0, m_shared->segment(), 0);
}

void X11Canvas::putThroughConnection(const QRect& rect)
{
    const size_t rowBytes = size_t(rect.width()) * 4;
    const size_t mostBytes =
        size_t(xcb_get_maximum_request_length(m_connection)) * 4 - sizeof(xcb_put_image_request_t);
    const int mostRows = static_cast<int>(std::max<size_t>(1, mostBytes / rowBytes));
    std::vector<std::uint8_t> strip;
    for (int top = rect.top(); top <= rect.bottom(); top += mostRows) {
        const int rows = std::min(mostRows, rect.bottom() + 1 - top);
        strip.resize(rowBytes * size_t(rows));
        for (int row = 0; row < rows; ++row)
            std::memcpy(strip.data() + rowBytes * size_t(row),
                        m_image.constScanLine(top + row) + rect.left() * 4, rowBytes);
        xcb_put_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, m_window, m_context,
                      static_cast<std::uint16_t>(rect.width()), static_cast<std::uint16_t>(rows),
                      static_cast<std::int16_t>(rect.left()), static_cast<std::int16_t>(top), 0, plainDepth,
                      static_cast<std::uint32_t>(strip.size()), strip.data());
    }
}

void X11Canvas::awaitRead()
{
    if (!m_fence) return;
    std::free(xcb_get_input_focus_reply(m_connection, {*m_fence}, nullptr));
    m_fence.reset();
}

} // namespace kestro
