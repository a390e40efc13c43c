#pragma once

#include "platform/session/IdleSource.h"
#include "platform/session/WaylandConnection.h"

#include <list>
#include <memory>

namespace kestro {

class WaylandIdleProtocol;

/// A Wayland compositor as what tells that the person is away: no seat has had input for the span, and nobody
/// asked the compositor to be left awake. The person is back with the first input at any seat. Main thread.
class WaylandIdleSource final : public IdleSource {
public:
    /// Null where the compositor has no protocol for it.
    [[nodiscard]] static std::unique_ptr<WaylandIdleSource>
    create(std::shared_ptr<WaylandConnection> connection);
    ~WaylandIdleSource() override;
    WaylandIdleSource(const WaylandIdleSource&) = delete;
    WaylandIdleSource& operator=(const WaylandIdleSource&) = delete;

    [[nodiscard]] QString name() const override;
    void watch(std::chrono::milliseconds span, Handlers handlers) override;

private:
    struct Seat;
    WaylandIdleSource(std::shared_ptr<WaylandConnection> connection,
                      std::unique_ptr<WaylandIdleProtocol> protocol);
    void add(const WaylandConnection::Global& global);
    void ask(Seat& seat);
    void tell();

    // In the order in which each needs what stands before it.
    std::shared_ptr<WaylandConnection> m_connection; ///< see there
    std::unique_ptr<WaylandIdleProtocol> m_protocol;
    std::list<Seat> m_seats;
    std::chrono::milliseconds m_span{0}; ///< 0 before it is asked to watch
    Handlers m_handlers;
    bool m_isIdle = false; ///< what was told last
    bool m_isBack = false; ///< input came that is not told yet
};

} // namespace kestro
