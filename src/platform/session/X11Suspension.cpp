#include "platform/session/X11Suspension.h"

#include "platform/session/XEvents.h"

#include <xcb/screensaver.h>

namespace kestro {

namespace {

constexpr unsigned grace = 2000; // milliseconds that a timer of the server may be late

/// Whether xscreensaver runs or ran here: it switches the server's saver off, leaves it so when it ends, and
/// leaves this mark at the root window too.
bool knowsXscreensaver(const XConnection& server)
{
    return propertyOf(server, rootOf(server), atomOf(server, "_SCREENSAVER_STATUS"), 0) != nullptr;
}

} // namespace

QList<Hindrance> suspensionIn(const X11SaverState& state, bool disabledCounts)
{
    const QString who = QStringLiteral("X11");
    if (state.isShown) return {};
    const bool isOverdue = state.timeout > 0 && state.idleMilliseconds > state.timeout * 1000 + grace;
    if (isOverdue || (state.isDisabled && disabledCounts)) return {{HindranceKind::Inhibited, who, {}}};
    return {};
}

QList<Hindrance> x11Suspension(const QByteArray& display, bool disabledCounts)
{
    const auto server = openX(display);
    if (!server) return {};
    const auto* const extension = xcb_get_extension_data(server.get(), &xcb_screensaver_id);
    if (!extension || extension->present == 0) return {};
    const auto info = xReply(xcb_screensaver_query_info_reply(
        server.get(), xcb_screensaver_query_info(server.get(), rootOf(server)), nullptr));
    const auto times =
        xReply(xcb_get_screen_saver_reply(server.get(), xcb_get_screen_saver(server.get()), nullptr));
    if (!info || !times) return {};
    const X11SaverState state{info->state == XCB_SCREENSAVER_STATE_DISABLED,
                              info->state == XCB_SCREENSAVER_STATE_ON, times->timeout,
                              info->ms_since_user_input};
    return suspensionIn(state, disabledCounts && !knowsXscreensaver(server));
}

} // namespace kestro
