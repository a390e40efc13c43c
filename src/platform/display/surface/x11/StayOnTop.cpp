#include "platform/display/surface/x11/StayOnTop.h"

#include "platform/display/surface/x11/RootStack.h"
#include "platform/display/surface/x11/X11Connection.h"

#include <QCoreApplication>

namespace kestro {

namespace {

constexpr std::chrono::milliseconds pace{500};

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

void stack(xcb_connection_t* connection, xcb_window_t window, xcb_window_t beside, xcb_stack_mode_t how)
{
    const std::uint32_t values[] = {beside, how};
    // The other window may be gone by now.
    const auto cookie = xcb_configure_window_checked(
        connection, window, XCB_CONFIG_WINDOW_SIBLING | XCB_CONFIG_WINDOW_STACK_MODE, values);
    xcb_discard_reply(connection, cookie.sequence);
}

} // namespace

StayOnTop::StayOnTop(xcb_connection_t* connection, std::uint32_t window)
    : m_connection(connection)
    , m_window(window)
    , m_settle(pace, [this] { settle(); })
{
    if (const auto root = rootWindow()) listenTo(*root, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
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
    if (changed && !isOwnWindow(m_connection, changed)) m_settle.ask();
    return false;
}

// Beside another window, never to the very top: a locker that appears meanwhile stays above.
void StayOnTop::settle()
{
    const auto windows = RootStack::read(m_connection);
    if (const auto locker = windows.locker())
        stack(m_connection, m_window, locker, XCB_STACK_MODE_BELOW);
    else if (const auto highest = windows.highestAbove(m_window))
        stack(m_connection, m_window, highest, XCB_STACK_MODE_ABOVE);
    xcb_flush(m_connection);
}

} // namespace kestro
