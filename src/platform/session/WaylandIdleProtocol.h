#pragma once

#include <QString>

#include <chrono>
#include <functional>
#include <memory>

struct wl_seat;

namespace kestro {

class WaylandConnection;

/// One seat's report of being idle, for as long as this lives. The connection must outlive it. Main thread.
class WaylandIdleNotice {
public:
    virtual ~WaylandIdleNotice() = default;
};

/// How a compositor tells of idle seats: ext-idle-notify-v1 or, before there was that, org_kde_kwin_idle.
/// Owned by the source that uses it; the connection must outlive it. Main thread.
/// Tested by WaylandIdleSourceTest.
class WaylandIdleProtocol {
public:
    enum class Counts {
        Everything, ///< who asked the compositor to be left awake counts as activity, input besides
        InputAlone,
    };
    using Handler = std::function<void(bool isIdle)>;

    /// The better one of those that the compositor has; null where it has none.
    [[nodiscard]] static std::unique_ptr<WaylandIdleProtocol> find(const WaylandConnection& connection);
    virtual ~WaylandIdleProtocol() = default;

    /// What the compositor calls it.
    [[nodiscard]] virtual QString name() const = 0;
    /// Counts from now on, and tells as soon as the seat is idle for `span`, and when it is no more. Null
    /// where the protocol cannot leave out who asked to be left awake. The handler must destroy neither
    /// the notice nor the connection.
    [[nodiscard]] virtual std::unique_ptr<WaylandIdleNotice>
    notice(wl_seat* seat, std::chrono::milliseconds span, Counts counts, Handler handler) = 0;
};

} // namespace kestro
