#include "platform/display/StayOnTop.h"

#include "platform/display/X11Connection.h"

#include <QGuiApplication>
#include <QWindow>

#include <algorithm>
#include <cstdlib>

namespace kestro {

namespace {

constexpr qint64 raiseSpan = 500; // milliseconds

/// The window that an event tells to have appeared or changed its place or height; 0 for other events.
xcb_window_t changedWindow(const xcb_generic_event_t& event)
{
    constexpr int sentFlag = 0x80;
    switch (event.response_type & ~sentFlag) {
    case XCB_MAP_NOTIFY:
        return reinterpret_cast<const xcb_map_notify_event_t&>(event).window;
    case XCB_CONFIGURE_NOTIFY:
        return reinterpret_cast<const xcb_configure_notify_event_t&>(event).window;
    default:
        return 0;
    }
}

bool isOurs(xcb_window_t id)
{
    const auto windows = QGuiApplication::topLevelWindows();
    return std::any_of(windows.begin(), windows.end(),
                       [id](const QWindow* window) { return window->handle() && window->winId() == id; });
}

} // namespace

StayOnTop::StayOnTop(xcb_connection_t* connection, std::uint32_t window)
    : m_connection(connection)
    , m_window(window)
{
    listenToRoot();
    QCoreApplication::instance()->installNativeEventFilter(this);
}

StayOnTop::~StayOnTop()
{
    if (auto* application = QCoreApplication::instance()) application->removeNativeEventFilter(this);
}

bool StayOnTop::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*)
{
    if (eventType != "xcb_generic_event_t") return false;
    const xcb_window_t changed = changedWindow(*static_cast<const xcb_generic_event_t*>(message));
    if (changed && !isOurs(changed)) raise();
    return false;
}

void StayOnTop::listenToRoot()
{
    auto* tree = xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, m_window), nullptr);
    const xcb_window_t root = tree ? tree->root : 0;
    std::free(tree);
    listenTo(root, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
}

void StayOnTop::raise()
{
    if (m_sinceRaise.isValid() && m_sinceRaise.elapsed() < raiseSpan) return;
    m_sinceRaise.start();
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(m_connection, m_window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    xcb_flush(m_connection);
}

} // namespace kestro
