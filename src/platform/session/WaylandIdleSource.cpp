#include "platform/session/WaylandIdleSource.h"

#include "platform/session/WaylandIdleProtocol.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <wayland-client.h>

namespace kestro {

/// One set of input devices, most often the only one.
struct WaylandIdleSource::Seat {
    Seat(std::uint32_t globalId, wl_seat* bound)
        : id(globalId)
        , seat(bound)
    {
    }
    ~Seat()
    {
        input.reset();
        everything.reset();
        if (wl_seat_get_version(seat) >= WL_SEAT_RELEASE_SINCE_VERSION)
            wl_seat_release(seat);
        else
            wl_seat_destroy(seat);
    }
    Seat(const Seat&) = delete;
    Seat& operator=(const Seat&) = delete;

    std::uint32_t id;
    wl_seat* seat;
    std::unique_ptr<WaylandIdleNotice> everything;
    /// While somebody asks to be left awake a compositor may keep input to itself as far as `everything` is
    /// concerned: only this one surely tells that the person is back. Null where the protocol has no such.
    std::unique_ptr<WaylandIdleNotice> input;
    bool isIdle = false; ///< as `everything` told last
};

std::unique_ptr<WaylandIdleSource> WaylandIdleSource::create(std::shared_ptr<WaylandConnection> connection)
{
    auto protocol = WaylandIdleProtocol::find(*connection);
    if (!protocol) return nullptr;
    return std::unique_ptr<WaylandIdleSource>(
        new WaylandIdleSource(std::move(connection), std::move(protocol)));
}

WaylandIdleSource::WaylandIdleSource(std::shared_ptr<WaylandConnection> connection,
                                     std::unique_ptr<WaylandIdleProtocol> protocol)
    : m_connection(std::move(connection))
    , m_protocol(std::move(protocol))
{
    for (const auto& global : m_connection->globals())
        add(global);
    m_connection->startReading({
        [this](const WaylandConnection::Global& global) { add(global); },
        [this](std::uint32_t id) {
            std::erase_if(m_seats, [id](const Seat& seat) { return seat.id == id; });
        },
        [this] { tell(); },
        [this] {
            const auto onLost = m_handlers.onLost;
            if (onLost) onLost();
        },
    });
    m_connection->flush();
}

WaylandIdleSource::~WaylandIdleSource()
{
    m_connection->stopReading();
}

QString WaylandIdleSource::name() const
{
    return m_protocol->name();
}

void WaylandIdleSource::watch(std::chrono::milliseconds span, Handlers handlers)
{
    m_span = span;
    m_handlers = std::move(handlers);
    m_isIdle = false;
    for (Seat& seat : m_seats)
        ask(seat);
    m_connection->flush();
}

void WaylandIdleSource::add(const WaylandConnection::Global& global)
{
    if (std::string_view(global.interface) != wl_seat_interface.name) return;
    auto* const bound = reinterpret_cast<wl_seat*>(m_connection->bind(global, wl_seat_interface));
    Seat& seat = m_seats.emplace_back(global.id, bound);
    if (m_span.count() > 0) ask(seat);
}

void WaylandIdleSource::ask(Seat& seat)
{
    using Counts = WaylandIdleProtocol::Counts;
    seat.isIdle = false;
    seat.everything = m_protocol->notice(seat.seat, m_span, Counts::Everything, [this, &seat](bool isIdle) {
        seat.isIdle = isIdle;
        m_isBack |= !isIdle;
    });
    seat.input = m_protocol->notice(seat.seat, m_span, Counts::InputAlone,
                                    [this](bool isIdle) { m_isBack |= !isIdle; });
}

/// After all that came at once was heard: what it comes to.
void WaylandIdleSource::tell()
{
    const bool isBack = std::exchange(m_isBack, false);
    const bool isAway = !m_seats.empty() && std::ranges::all_of(m_seats, &Seat::isIdle);
    const bool isIdle = isAway && !(m_isIdle && isBack);
    if (m_isIdle == isIdle) return;
    m_isIdle = isIdle;
    const auto handler = m_isIdle ? m_handlers.onIdle : m_handlers.onActive;
    if (!m_isIdle) watch(m_span, m_handlers); // one that was not told of the input would never tell again
    handler();
}

} // namespace kestro
