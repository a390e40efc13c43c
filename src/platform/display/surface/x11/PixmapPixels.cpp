#include "platform/display/surface/x11/PixmapPixels.h"

#include "platform/display/surface/x11/SharedPixels.h"
#include "platform/display/surface/x11/X11Connection.h"

#include <cstring>
#include <xcb/shm.h>
#include <xcb/xcb.h>

namespace kestro {

namespace {

constexpr std::uint32_t allPlanes = ~0U;

std::size_t bytesOf(const QRect& part)
{
    return std::size_t(part.width()) * std::size_t(part.height()) * 4;
}

} // namespace

/// A part on its way. The server writes pixels without a gap between the rows: one that has the full width
/// goes to its place at once, any other one behind the image first.
struct PixmapPixels::Request {
    QRect part;
    std::size_t offset;
    bool isInPlace;
    xcb_shm_get_image_cookie_t cookie;
};

std::unique_ptr<PixmapPixels> PixmapPixels::create(xcb_connection_t* connection, std::uint32_t pixmap,
                                                   QSize size)
{
    std::unique_ptr<PixmapPixels> pixels(new PixmapPixels(connection, pixmap));
    return pixels->allocate(size) ? std::move(pixels) : nullptr;
}

PixmapPixels::PixmapPixels(xcb_connection_t* connection, std::uint32_t pixmap)
    : m_connection(connection)
    , m_pixmap(pixmap)
{
}

PixmapPixels::~PixmapPixels() = default;

// The parts never overlap, so that behind the image there is room for all of them. What is not used of it
// takes no memory.
bool PixmapPixels::allocate(QSize size)
{
    const std::size_t bytes = bytesOf({{0, 0}, size});
    m_shared = SharedPixels::create(m_connection, bytes * 2, SharedPixels::Access::ReadAndWrite);
    if (!m_shared) {
        m_image = QImage(size, QImage::Format_RGB32);
        m_image.fill(Qt::black);
        return !m_image.isNull();
    }
    m_image = QImage(m_shared->memory(), size.width(), size.height(), qsizetype{size.width()} * 4,
                     QImage::Format_RGB32);
    return !m_image.isNull();
}

bool PixmapPixels::fetch(const std::vector<QRect>& parts)
{
    if (m_shared) return fetchShared(parts);
    bool isAll = true;
    for (const QRect& part : parts)
        isAll = fetchThroughConnection(part) && isAll;
    return isAll;
}

// All are asked for before the first answer is awaited: the server need not wait for us in between.
bool PixmapPixels::fetchShared(const std::vector<QRect>& parts)
{
    std::vector<Request> requests;
    requests.reserve(parts.size());
    std::size_t scratch = bytesOf(m_image.rect());
    for (const QRect& part : parts)
        requests.push_back(request(part, scratch));
    bool isAll = true;
    for (const Request& each : requests)
        isAll = finish(each) && isAll;
    return isAll;
}

PixmapPixels::Request PixmapPixels::request(const QRect& part, std::size_t& scratch)
{
    Request request{part, 0, part.left() == 0 && part.width() == m_image.width(), {}};
    request.offset =
        request.isInPlace ? std::size_t(part.top()) * std::size_t(m_image.bytesPerLine()) : scratch;
    if (!request.isInPlace) scratch += bytesOf(part);
    request.cookie = xcb_shm_get_image(
        m_connection, m_pixmap, static_cast<std::int16_t>(part.left()), static_cast<std::int16_t>(part.top()),
        static_cast<std::uint16_t>(part.width()), static_cast<std::uint16_t>(part.height()), allPlanes,
        XCB_IMAGE_FORMAT_Z_PIXMAP, m_shared->segment(), static_cast<std::uint32_t>(request.offset));
    return request;
}

bool PixmapPixels::finish(const Request& request)
{
    const ReplyPtr<xcb_shm_get_image_reply_t> reply(
        xcb_shm_get_image_reply(m_connection, request.cookie, nullptr), &std::free);
    if (!reply) return false;
    if (!request.isInPlace) copyRows(request.part, m_shared->memory() + request.offset);
    return true;
}

bool PixmapPixels::fetchThroughConnection(const QRect& part)
{
    const auto cookie = xcb_get_image(
        m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, m_pixmap, static_cast<std::int16_t>(part.left()),
        static_cast<std::int16_t>(part.top()), static_cast<std::uint16_t>(part.width()),
        static_cast<std::uint16_t>(part.height()), allPlanes);
    const ReplyPtr<xcb_get_image_reply_t> reply(xcb_get_image_reply(m_connection, cookie, nullptr),
                                                &std::free);
    if (!reply || std::size_t(xcb_get_image_data_length(reply.get())) < bytesOf(part)) return false;
    copyRows(part, xcb_get_image_data(reply.get()));
    return true;
}

void PixmapPixels::copyRows(const QRect& part, const unsigned char* pixels)
{
    // Over memory of the server's own the image stays what it is; bits() would take a copy of it.
    auto* const first = const_cast<unsigned char*>(m_image.constBits());
    const std::size_t rowBytes = std::size_t(part.width()) * 4;
    for (int row = 0; row < part.height(); ++row)
        std::memcpy(first + m_image.bytesPerLine() * (part.top() + row) + qsizetype{part.left()} * 4,
                    pixels + rowBytes * std::size_t(row), rowBytes);
}

} // namespace kestro
