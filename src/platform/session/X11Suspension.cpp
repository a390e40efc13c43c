#include "platform/session/X11Suspension.h"

#include <cstdlib>
#include <memory>
#include <xcb/screensaver.h>
#include <xcb/xcb.h>

namespace kestro {

namespace {

constexpr unsigned grace = 2000; // milliseconds that a timer of the server may be late

template <typename Reply>
using Held = std::unique_ptr<Reply, decltype(&std::free)>;

template <typename Reply>
Held<Reply> held(Reply* reply)
{
    return {reply, &std::free};
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
    const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> server(
        xcb_connect(display.constData(), nullptr), &xcb_disconnect);
    if (xcb_connection_has_error(server.get()) != 0) return {};
    const auto* const extension = xcb_get_extension_data(server.get(), &xcb_screensaver_id);
    if (!extension || extension->present == 0) return {};
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(server.get())).data->root;
    const auto info = held(xcb_screensaver_query_info_reply(
        server.get(), xcb_screensaver_query_info(server.get(), root), nullptr));
    const auto times =
        held(xcb_get_screen_saver_reply(server.get(), xcb_get_screen_saver(server.get()), nullptr));
    if (!info || !times) return {};
    const X11SaverState state{info->state == XCB_SCREENSAVER_STATE_DISABLED,
                              info->state == XCB_SCREENSAVER_STATE_ON, times->timeout,
                              info->ms_since_user_input};
    return suspensionIn(state, disabledCounts);
}

} // namespace kestro
