#include "platform/session/FullScreenLook.h"

#include "platform/session/WaylandConnection.h"
#include "platform/session/XEvents.h"

#include <QStringList>

#include <algorithm>
#include <list>
#include <span>
#include <wayland-client.h>
#include <wayland-foreign-toplevel.h>

namespace kestro {

namespace {

constexpr std::uint32_t mostStates = 64; // that are looked at of one window

std::span<const xcb_atom_t> numbersIn(const XReply<xcb_get_property_reply_t>& property)
{
    constexpr int width = 32;
    if (!property || property->format != width) return {};
    return {static_cast<const xcb_atom_t*>(xcb_get_property_value(property.get())), property->value_len};
}

/// The windows of a compositor, as it tells of them.
class Toplevels final {
public:
    explicit Toplevels(zwlr_foreign_toplevel_manager_v1* manager)
        : m_manager(manager)
    {
        zwlr_foreign_toplevel_manager_v1_add_listener(manager, &managerCalls, this);
    }
    ~Toplevels()
    {
        for (const Window& window : m_windows)
            zwlr_foreign_toplevel_handle_v1_destroy(window.handle);
        zwlr_foreign_toplevel_manager_v1_destroy(m_manager);
    }
    Toplevels(const Toplevels&) = delete;
    Toplevels& operator=(const Toplevels&) = delete;

    [[nodiscard]] bool isUsedOneFullScreen() const
    {
        return std::ranges::any_of(m_windows, [](const Window& window) { return window.isUsedFullScreen; });
    }

private:
    using Handle = zwlr_foreign_toplevel_handle_v1;
    struct Window {
        Handle* handle;
        bool isUsedFullScreen = false;
    };

    static void came(void* data, zwlr_foreign_toplevel_manager_v1*, Handle* handle)
    {
        Window& window = static_cast<Toplevels*>(data)->m_windows.emplace_back(Window{handle});
        zwlr_foreign_toplevel_handle_v1_add_listener(handle, &calls, &window);
    }
    static void finished(void*, zwlr_foreign_toplevel_manager_v1*) {}
    static void stateTold(void* data, Handle*, wl_array* states)
    {
        const std::span told(static_cast<const std::uint32_t*>(states->data),
                             states->size / sizeof(std::uint32_t));
        const auto has = [told](std::uint32_t state) { return std::ranges::find(told, state) != told.end(); };
        static_cast<Window*>(data)->isUsedFullScreen = has(ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_ACTIVATED) &&
                                                       has(ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_FULLSCREEN);
    }
    static void closed(void* data, Handle*) { static_cast<Window*>(data)->isUsedFullScreen = false; }
    static void textTold(void*, Handle*, const char*) {}
    static void outputTold(void*, Handle*, wl_output*) {}
    static void done(void*, Handle*) {}
    static void parentTold(void*, Handle*, Handle*) {}

    static constexpr zwlr_foreign_toplevel_manager_v1_listener managerCalls{came, finished};
    static constexpr zwlr_foreign_toplevel_handle_v1_listener calls{
        textTold, textTold, outputTold, outputTold, stateTold, done, closed, parentTold};

    zwlr_foreign_toplevel_manager_v1* m_manager;
    std::list<Window> m_windows; ///< each stays where it is: it is told of its state
};

} // namespace

bool isFullScreenOnX11(const QByteArray& display)
{
    const auto server = openX(display);
    if (!server) return false;
    const auto active = propertyOf(server, rootOf(server), atomOf(server, "_NET_ACTIVE_WINDOW"), 1);
    const auto windows = numbersIn(active);
    const xcb_atom_t covering = atomOf(server, "_NET_WM_STATE_FULLSCREEN");
    if (windows.empty() || covering == XCB_ATOM_NONE) return false;
    const auto told = propertyOf(server, windows.front(), atomOf(server, "_NET_WM_STATE"), mostStates);
    return std::ranges::count(numbersIn(told), covering) > 0;
}

bool isFullScreenOnWayland(const QByteArray& display)
{
    const auto connection = WaylandConnection::open(display);
    if (!connection) return false;
    const auto* const global = connection->find(zwlr_foreign_toplevel_manager_v1_interface.name);
    if (!global) return false;
    auto* const bound = connection->bind(*global, zwlr_foreign_toplevel_manager_v1_interface);
    const Toplevels toplevels(reinterpret_cast<zwlr_foreign_toplevel_manager_v1*>(bound));
    return connection->awaitAnswers() && toplevels.isUsedOneFullScreen();
}

QList<Hindrance> soundOfFullScreen(const QStringList& programs)
{
    QList<Hindrance> found;
    for (const QString& program : programs)
        found.append({HindranceKind::FullScreen, program, {}});
    return found;
}

} // namespace kestro
