#include "platform/display/surface/x11/HiddenWindow.h"

#include "platform/display/gl/OpenGLVisual.h"
#include "platform/display/surface/x11/PixmapPixels.h"
#include "platform/display/surface/x11/X11Connection.h"
#include "platform/display/surface/x11/X11PixelFormat.h"

#include <QSocketNotifier>
#include <QtGlobal>

#include <utility>
#include <xcb/composite.h>
#include <xcb/damage.h>
#include <xcb/xcb.h>
#include <xcb/xfixes.h>

namespace kestro {

namespace {

/// Beyond so many parts one around them all is cheaper.
constexpr int mostParts = 48;

const xcb_screen_t* screenOf(xcb_connection_t* connection, int number)
{
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screens.rem > 0 && number > 0; --number)
        xcb_screen_next(&screens);
    return screens.rem > 0 ? screens.data : nullptr;
}

bool isThere(xcb_connection_t* connection, xcb_extension_t& extension)
{
    const auto* data = xcb_get_extension_data(connection, &extension);
    return data && data->present;
}

/// Each extension wants to be told the version that its user speaks before anything else.
bool agreeOnVersions(xcb_connection_t* connection)
{
    const auto composite = xcb_composite_query_version(connection, 0, 4);
    const auto damage = xcb_damage_query_version(connection, 1, 1);
    const auto xfixes = xcb_xfixes_query_version(connection, 4, 0);
    const ReplyPtr<xcb_composite_query_version_reply_t> first(
        xcb_composite_query_version_reply(connection, composite, nullptr), &std::free);
    const ReplyPtr<xcb_damage_query_version_reply_t> second(
        xcb_damage_query_version_reply(connection, damage, nullptr), &std::free);
    const ReplyPtr<xcb_xfixes_query_version_reply_t> third(
        xcb_xfixes_query_version_reply(connection, xfixes, nullptr), &std::free);
    const bool namesPixmaps = first && (first->major_version > 0 || first->minor_version >= 2);
    return namesPixmaps && second && third && third->major_version >= 2;
}

QRect rectOf(const xcb_rectangle_t& rectangle)
{
    return {rectangle.x, rectangle.y, rectangle.width, rectangle.height};
}

} // namespace

Result<std::unique_ptr<HiddenWindow>> HiddenWindow::create(QSize size, Drawing drawing, Handlers handlers)
{
    if (qEnvironmentVariableIsEmpty("DISPLAY")) return Error{QStringLiteral("there is no X display")};
    int screenNumber = 0;
    xcb_connection_t* const connection = xcb_connect(nullptr, &screenNumber);
    std::unique_ptr<HiddenWindow> window(new HiddenWindow(connection, screenNumber, std::move(handlers)));
    if (xcb_connection_has_error(connection) != 0)
        return Error{QStringLiteral("the X display %1 does not answer").arg(qEnvironmentVariable("DISPLAY"))};
    const QString missing = window->whatIsMissing();
    if (!missing.isEmpty()) return Error{missing};
    if (!window->open(size, drawing))
        return Error{QStringLiteral("the X server would not keep the pixels of a window")};
    return window;
}

HiddenWindow::HiddenWindow(xcb_connection_t* connection, int screenNumber, Handlers handlers)
    : m_connection(connection)
    , m_screenNumber(screenNumber)
    , m_handlers(std::move(handlers))
{
}

HiddenWindow::~HiddenWindow()
{
    m_notifier.reset();
    m_pixels.reset();
    xcb_disconnect(m_connection);
}

QString HiddenWindow::whatIsMissing() const
{
    const bool hasExtensions = isThere(m_connection, xcb_composite_id) &&
                               isThere(m_connection, xcb_damage_id) && isThere(m_connection, xcb_xfixes_id);
    if (!hasExtensions || !agreeOnVersions(m_connection))
        return QStringLiteral("the X server lacks the extensions Composite, DAMAGE or XFIXES");
    const xcb_screen_t* const screen = screenOf(m_connection, m_screenNumber);
    const xcb_setup_t* const setup = xcb_get_setup(m_connection);
    if (!screen || screen->root_depth != plainDepth || !hasOurFormat(setup) ||
        !isBlueFirst(setup, screen->root_visual))
        return QStringLiteral("the X server's pixels have another shape than 8 bits a colour");
    return {};
}

bool HiddenWindow::open(QSize size, Drawing drawing)
{
    const xcb_screen_t& screen = *screenOf(m_connection, m_screenNumber);
    m_size = size.expandedTo({1, 1});
    const auto special =
        drawing == Drawing::OpenGL ? openGLVisual(m_connection, screen, m_screenNumber) : std::nullopt;
    createWindows(special.value_or(screen.root_visual));
    namePixmap();
    m_notifier =
        std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_connection), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, [this] { readEvents(); });
    // Answers come in order: with this one all of the above was carried out, or was not.
    const bool isKept = m_pixels && m_pixels->fetch({QRect(0, 0, 1, 1)});
    if (drainEvents()) postDrawn();
    return isKept && !m_isLost;
}

// What is redirected is the child alone, so that a compositing manager, which redirects the windows on the
// root, has its own and this its own.
void HiddenWindow::createWindows(std::uint32_t visual)
{
    const xcb_screen_t& screen = *screenOf(m_connection, m_screenNumber);
    const std::uint32_t hold = xcb_generate_id(m_connection);
    const std::uint32_t unmanaged = 1;
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, hold, screen.root, -10, -10, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT,
                      &unmanaged);
    std::uint32_t colours = screen.default_colormap;
    if (visual != screen.root_visual) {
        colours = xcb_generate_id(m_connection);
        xcb_create_colormap(m_connection, XCB_COLORMAP_ALLOC_NONE, colours, screen.root, visual);
    }
    m_window = xcb_generate_id(m_connection);
    const std::uint32_t values[] = {0, 0, colours}; // black inside and at the border
    xcb_create_window(m_connection, plainDepth, m_window, hold, 0, 0,
                      static_cast<std::uint16_t>(m_size.width()), static_cast<std::uint16_t>(m_size.height()),
                      0, XCB_WINDOW_CLASS_INPUT_OUTPUT, visual,
                      XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_COLORMAP, values);
    m_region = xcb_generate_id(m_connection);
    xcb_xfixes_create_region(m_connection, m_region, 0, nullptr);
    for (const std::uint32_t deaf : {hold, m_window})
        xcb_xfixes_set_window_shape_region(m_connection, deaf, XCB_SHAPE_SK_INPUT, 0, 0, m_region);
    xcb_composite_redirect_window(m_connection, m_window, XCB_COMPOSITE_REDIRECT_MANUAL);
    xcb_map_window(m_connection, m_window);
    xcb_map_window(m_connection, hold);
    m_damage = xcb_generate_id(m_connection);
    xcb_damage_create(m_connection, m_damage, m_window, XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
}

void HiddenWindow::namePixmap()
{
    m_pixels.reset();
    if (m_pixmap != 0) xcb_free_pixmap(m_connection, m_pixmap);
    m_pixmap = xcb_generate_id(m_connection);
    xcb_composite_name_window_pixmap(m_connection, m_window, m_pixmap);
    m_pixels = PixmapPixels::create(m_connection, m_pixmap, m_size);
    m_isWhole = true;
    m_isStale = true;
}

void HiddenWindow::resize(QSize size)
{
    size = size.expandedTo({1, 1});
    if (size == m_size || m_isLost) return;
    m_size = size;
    const std::uint32_t sides[] = {static_cast<std::uint32_t>(size.width()),
                                   static_cast<std::uint32_t>(size.height())};
    xcb_configure_window(m_connection, m_window, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, sides);
    namePixmap();
    xcb_flush(m_connection);
}

const QImage& HiddenWindow::pixels()
{
    static const QImage none;
    if (m_pixels && m_isStale && !m_isLost) {
        m_isStale = false;
        m_pixels->fetch(takeDamage());
        if (drainEvents()) postDrawn();
    }
    return m_pixels ? m_pixels->image() : none;
}

/// What was drawn since the last call, in parts that do not overlap.
std::vector<QRect> HiddenWindow::takeDamage()
{
    const QRect all(QPoint(0, 0), m_size);
    xcb_damage_subtract(m_connection, m_damage, XCB_NONE, m_region);
    if (std::exchange(m_isWhole, false)) return {all};
    const ReplyPtr<xcb_xfixes_fetch_region_reply_t> reply(
        xcb_xfixes_fetch_region_reply(m_connection, xcb_xfixes_fetch_region(m_connection, m_region), nullptr),
        &std::free);
    if (!reply) return {all};
    const int count = xcb_xfixes_fetch_region_rectangles_length(reply.get());
    const xcb_rectangle_t* const rectangles = xcb_xfixes_fetch_region_rectangles(reply.get());
    const QRect around = rectOf(reply->extents) & all;
    if (count > mostParts) return {around};
    std::vector<QRect> parts;
    for (int i = 0; i < count; ++i)
        if (const QRect part = rectOf(rectangles[i]) & all; !part.isEmpty()) parts.push_back(part);
    return parts;
}

void HiddenWindow::readEvents()
{
    if (drainEvents() && m_handlers.drawn) m_handlers.drawn();
}

/// Reads what has come, from the server by itself and with the answers that were waited for. Whether
/// something was drawn.
bool HiddenWindow::drainEvents()
{
    const auto* damage = xcb_get_extension_data(m_connection, &xcb_damage_id);
    bool isDamaged = false;
    const auto next = [this] {
        return ReplyPtr<xcb_generic_event_t>(xcb_poll_for_event(m_connection), &std::free);
    };
    for (auto event = next(); event; event = next()) {
        constexpr int sentFlag = 0x80;
        isDamaged |= damage && (event->response_type & ~sentFlag) == damage->first_event + XCB_DAMAGE_NOTIFY;
    }
    m_isStale |= isDamaged;
    if (!m_isLost && xcb_connection_has_error(m_connection) != 0) {
        m_isLost = true;
        m_notifier->setEnabled(false);
        postLost();
    }
    return isDamaged;
}

/// The handlers may draw or take this window away: never in the middle of something.
void HiddenWindow::postDrawn()
{
    const auto tell = [this] {
        if (m_handlers.drawn) m_handlers.drawn();
    };
    QMetaObject::invokeMethod(m_notifier.get(), tell, Qt::QueuedConnection);
}

void HiddenWindow::postLost()
{
    const auto tell = [this] {
        const auto lost = m_handlers.lost; // outlives this
        if (lost) lost();
    };
    QMetaObject::invokeMethod(m_notifier.get(), tell, Qt::QueuedConnection);
}

} // namespace kestro
