#include "platform/session/FakeCompositor.h"

#include "platform/session/ListeningSocket.h"

#include <gtest/gtest.h>
#include <wayland-ext-idle-notify-server.h>
#include <wayland-server.h>

namespace kestro {

struct FakeCompositor::Calls {
    static FakeCompositor& of(wl_resource* resource)
    {
        return *static_cast<FakeCompositor*>(wl_resource_get_user_data(resource));
    }
    static void destroy(wl_client*, wl_resource* resource) { wl_resource_destroy(resource); }
    static void gone(wl_resource* resource)
    {
        of(resource).m_notices.removeIf([=](const Notice& each) { return each.resource == resource; });
    }
    static void getDevice(wl_client*, wl_resource*, std::uint32_t) {}
    static constexpr struct wl_seat_interface seatCalls {
        getDevice, getDevice, getDevice, destroy
    };
    static constexpr struct ext_idle_notification_v1_interface noticeCalls {
        destroy
    };

    static void notice(Kind kind, wl_client* client, wl_resource* notifier, std::uint32_t id,
                       std::uint32_t span, wl_resource* seat)
    {
        FakeCompositor& self = of(notifier);
        auto* const resource = wl_resource_create(client, &::ext_idle_notification_v1_interface,
                                                  wl_resource_get_version(notifier), id);
        wl_resource_set_implementation(resource, &noticeCalls, &self, gone);
        const auto number =
            static_cast<int>(reinterpret_cast<std::intptr_t>(wl_resource_get_user_data(seat)));
        self.m_notices << Notice{resource, kind, number, span, false};
        ++self.m_asked;
    }
    static void everything(wl_client* client, wl_resource* notifier, std::uint32_t id, std::uint32_t span,
                           wl_resource* seat)
    {
        notice(Kind::Everything, client, notifier, id, span, seat);
    }
    static void inputAlone(wl_client* client, wl_resource* notifier, std::uint32_t id, std::uint32_t span,
                           wl_resource* seat)
    {
        notice(Kind::InputAlone, client, notifier, id, span, seat);
    }
    static constexpr struct ext_idle_notifier_v1_interface notifierCalls {
        destroy, everything, inputAlone
    };

    static void bindSeat(wl_client* client, void* number, std::uint32_t version, std::uint32_t id)
    {
        auto* const resource =
            wl_resource_create(client, &::wl_seat_interface, static_cast<int>(version), id);
        wl_resource_set_implementation(resource, &seatCalls, number, nullptr);
    }
    static void bindNotifier(wl_client* client, void* self, std::uint32_t version, std::uint32_t id)
    {
        auto* const resource =
            wl_resource_create(client, &::ext_idle_notifier_v1_interface, static_cast<int>(version), id);
        wl_resource_set_implementation(resource, &notifierCalls, self, nullptr);
    }
};

FakeCompositor::FakeCompositor(int version, int seats)
    : m_display(wl_display_create())
{
    if (version > 0)
        wl_global_create(m_display, &::ext_idle_notifier_v1_interface, version, this, Calls::bindNotifier);
    for (int i = 0; i < seats; ++i)
        addSeat();
    if (wl_display_add_socket_fd(m_display, listenAt(display())) != 0) ADD_FAILURE() << "no compositor";
    auto* const loop = wl_display_get_event_loop(m_display);
    m_notifier = std::make_unique<QSocketNotifier>(wl_event_loop_get_fd(loop), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { turn(); });
}

FakeCompositor::~FakeCompositor()
{
    m_notifier.reset();
    wl_display_destroy_clients(m_display);
    wl_display_destroy(m_display);
}

void FakeCompositor::turn()
{
    wl_event_loop_dispatch(wl_display_get_event_loop(m_display), 0);
    wl_display_flush_clients(m_display);
}

void FakeCompositor::addSeat()
{
    auto* const number = reinterpret_cast<void*>(static_cast<std::intptr_t>(m_seats.size()));
    m_seats << wl_global_create(m_display, &::wl_seat_interface, 5, number, Calls::bindSeat);
    wl_display_flush_clients(m_display);
}

void FakeCompositor::removeLastSeat()
{
    wl_global_destroy(m_seats.takeLast());
    wl_display_flush_clients(m_display);
}

void FakeCompositor::tell(Kind kind, int seat, bool isIdle)
{
    for (Notice& each : m_notices) {
        if (each.kind != kind || each.seat != seat || each.isIdle == isIdle) continue;
        each.isIdle = isIdle;
        if (isIdle)
            ext_idle_notification_v1_send_idled(each.resource);
        else
            ext_idle_notification_v1_send_resumed(each.resource);
    }
    wl_display_flush_clients(m_display);
}

QList<std::uint32_t> FakeCompositor::spans(Kind kind) const
{
    QList<std::uint32_t> found;
    for (const Notice& each : m_notices)
        if (each.kind == kind) found << each.span;
    return found;
}

} // namespace kestro
