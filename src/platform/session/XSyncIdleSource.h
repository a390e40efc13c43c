#pragma once

#include "platform/session/IdleSource.h"
#include "platform/session/XEvents.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <xcb/sync.h>

namespace kestro {

/// The X server's own counter of the time since the last input at any device, as what tells that the person
/// is away. The server raises an alarm when it reaches the span and another when it falls below; nothing is
/// asked in between. Under Xwayland the counter knows only of input to X windows: not for Wayland. Main
/// thread.
class XSyncIdleSource final : public IdleSource {
public:
    /// An X server that has the counter.
    struct Counter {
        XConnection connection; ///< see there
        xcb_sync_counter_t id;
        std::uint8_t alarmEvent; ///< the number of its events
    };

    /// Connects and asks for the counter; waits for the server for ever if need be. Any thread. Nothing where
    /// there is no such server or counter.
    [[nodiscard]] static std::optional<Counter> open(const QByteArray& display);
    explicit XSyncIdleSource(Counter counter);

    [[nodiscard]] QString name() const override { return QStringLiteral("XSync"); }
    void watch(std::chrono::milliseconds span, Handlers handlers) override;

private:
    void setAlarm(xcb_sync_testtype_t test, std::int64_t value);
    void heard(const xcb_generic_event_t& event);

    Counter m_counter;
    XEvents m_events;
    Handlers m_handlers;
    std::int64_t m_span = 0; ///< milliseconds
    xcb_sync_alarm_t m_alarm = XCB_NONE;
    bool m_isIdle = false; ///< what was told last
};

} // namespace kestro
