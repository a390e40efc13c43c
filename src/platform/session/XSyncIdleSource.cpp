#include "platform/session/XSyncIdleSource.h"

#include <string_view>
#include <utility>

namespace kestro {

namespace {

xcb_sync_int64_t wire(std::int64_t value)
{
    constexpr int halfBits = 32;
    return {static_cast<std::int32_t>(value >> halfBits), static_cast<std::uint32_t>(value)};
}

std::optional<xcb_sync_counter_t> findIdleTime(xcb_connection_t* connection)
{
    const auto counters = xReply(
        xcb_sync_list_system_counters_reply(connection, xcb_sync_list_system_counters(connection), nullptr));
    if (!counters) return {};
    for (auto each = xcb_sync_list_system_counters_counters_iterator(counters.get()); each.rem > 0;
         xcb_sync_systemcounter_next(&each)) {
        // Right behind its length. The library's own accessor leaves out the first two letters: it counts the
        // filling at the end of its structure, which is not in what the server sends.
        const auto* const letters = reinterpret_cast<const char*>(&each.data->name_len + 1);
        const std::string_view name(letters, each.data->name_len);
        if (name == "IDLETIME") return each.data->counter;
    }
    return {};
}

} // namespace

std::optional<XSyncIdleSource::Counter> XSyncIdleSource::open(const QByteArray& display)
{
    auto connection = openX(display);
    if (!connection) return {};
    const auto* const extension = xcb_get_extension_data(connection.get(), &xcb_sync_id);
    if (!extension || !extension->present) return {};
    const auto version =
        xcb_sync_initialize(connection.get(), XCB_SYNC_MAJOR_VERSION, XCB_SYNC_MINOR_VERSION);
    if (!xReply(xcb_sync_initialize_reply(connection.get(), version, nullptr))) return {};
    const auto counter = findIdleTime(connection.get());
    if (!counter) return {};
    const auto event = static_cast<std::uint8_t>(extension->first_event + XCB_SYNC_ALARM_NOTIFY);
    return Counter{std::move(connection), *counter, event};
}

XSyncIdleSource::XSyncIdleSource(Counter counter)
    : m_counter(std::move(counter))
    , m_events(m_counter.connection, {[this](const xcb_generic_event_t& event) { heard(event); },
                                      [this] {
                                          const auto onLost = m_handlers.onLost;
                                          if (onLost) onLost();
                                      }})
{
}

void XSyncIdleSource::watch(std::chrono::milliseconds span, Handlers handlers)
{
    m_handlers = std::move(handlers);
    m_span = span.count();
    m_isIdle = false;
    setAlarm(XCB_SYNC_TESTTYPE_POSITIVE_COMPARISON, m_span);
}

/// Has the server tell once when the counter is on that side of `value`. A comparison, not a transition: so
/// nothing is missed that happened before the server hears of it, neither a counter beyond the span already
/// nor input that came since the last alarm.
void XSyncIdleSource::setAlarm(xcb_sync_testtype_t test, std::int64_t value)
{
    auto* const connection = m_counter.connection.get();
    if (m_alarm != XCB_NONE) xcb_sync_destroy_alarm(connection, m_alarm);
    m_alarm = xcb_generate_id(connection);
    // A new alarm is compared with what the server knew of the counter last, which may be long ago: asked for
    // its value, the server looks at it anew.
    xcb_discard_reply(connection, xcb_sync_query_counter(connection, m_counter.id).sequence);
    constexpr std::uint32_t what = XCB_SYNC_CA_COUNTER | XCB_SYNC_CA_VALUE_TYPE | XCB_SYNC_CA_VALUE |
                                   XCB_SYNC_CA_TEST_TYPE | XCB_SYNC_CA_DELTA | XCB_SYNC_CA_EVENTS;
    xcb_sync_create_alarm_value_list_t values{};
    values.counter = m_counter.id;
    values.valueType = XCB_SYNC_VALUETYPE_ABSOLUTE;
    values.value = wire(value);
    values.testType = test;
    values.delta = wire(0); // a comparison without a step is made once
    values.events = 1;
    xcb_sync_create_alarm_aux(connection, m_alarm, what, &values);
    xcb_flush(connection);
}

void XSyncIdleSource::heard(const xcb_generic_event_t& event)
{
    constexpr int sentByClient = 0x80;
    if ((event.response_type & ~sentByClient) != m_counter.alarmEvent) return;
    const auto& alarm = reinterpret_cast<const xcb_sync_alarm_notify_event_t&>(event);
    if (alarm.alarm != m_alarm || alarm.state == XCB_SYNC_ALARMSTATE_DESTROYED) return; // of one before
    m_isIdle = !m_isIdle;
    if (m_isIdle)
        setAlarm(XCB_SYNC_TESTTYPE_NEGATIVE_COMPARISON, m_span - 1);
    else
        setAlarm(XCB_SYNC_TESTTYPE_POSITIVE_COMPARISON, m_span);
    const auto handler = m_isIdle ? m_handlers.onIdle : m_handlers.onActive;
    handler();
}

} // namespace kestro
