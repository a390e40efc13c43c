#pragma once

#include <QByteArray>
#include <QSocketNotifier>

#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <string_view>

struct wl_display;
struct wl_interface;
struct wl_proxy;
struct wl_registry;

namespace kestro {

/// A connection to a Wayland compositor, with the list of what that has. Opened on any thread, since that
/// waits for the compositor; from then on used on the main thread alone, where the event loop reads it. A
/// `shared_ptr` because it comes as the answer of a task that nobody may be waiting for any more.
/// Tested by WaylandIdleSourceTest.
class WaylandConnection final {
public:
    struct Global {
        std::uint32_t id;
        QByteArray interface;
        std::uint32_t version;
    };
    /// Called from the event loop.
    struct Handlers {
        std::function<void(const Global&)> onAdded;
        std::function<void(std::uint32_t id)> onRemoved;
        std::function<void()> onRead; ///< all that came has been heard; may destroy the connection
        std::function<void()> onLost; ///< once; may destroy the connection
    };

    /// Connects and waits until the compositor has told what it has, for ever if need be. Null where none
    /// answers. `display` as in WAYLAND_DISPLAY, not empty.
    [[nodiscard]] static std::shared_ptr<WaylandConnection> open(const QByteArray& display);
    ~WaylandConnection();
    WaylandConnection(const WaylandConnection&) = delete;
    WaylandConnection& operator=(const WaylandConnection&) = delete;

    /// What the compositor has now.
    [[nodiscard]] const std::list<Global>& globals() const { return m_globals; }
    /// The one of that interface, or null.
    [[nodiscard]] const Global* find(std::string_view interface) const;
    /// An object for a global, of a version that both ends know.
    [[nodiscard]] wl_proxy* bind(const Global& global, const wl_interface& interface) const;

    /// Waits until the compositor has answered all that was asked of it, for ever if need be; false where it
    /// is gone. On the thread that opened it, and not once the event loop reads it.
    [[nodiscard]] bool awaitAnswers();

    /// Has the event loop read it from now on, until stopReading(): whoever began that ends it, because the
    /// thread of the task that brought the connection may be the last to let go of it.
    void startReading(Handlers handlers);
    void stopReading();
    /// Sends what was asked for since the last time.
    void flush();

private:
    struct Listener; ///< what the library calls
    explicit WaylandConnection(wl_display* display);
    void read();
    void lose();

    wl_display* m_display;
    wl_registry* m_registry = nullptr;
    std::list<Global> m_globals;
    Handlers m_handlers;
    std::unique_ptr<QSocketNotifier> m_notifier; ///< null while nobody reads
};

} // namespace kestro
