#include "platform/display/surface/x11/DisplayPower.h"

#include "platform/display/surface/x11/X11Connection.h"

#include <string_view>
#include <utility>
#include <xcb/dpms.h>
#include <xcb/xcbext.h>

namespace kestro {

namespace {

/// The library's own question comes first: once this one is answered, that one is too, and making requests of
/// the extension does not wait for it.
unsigned int askForExtension(xcb_connection_t* connection)
{
    constexpr std::string_view name = "DPMS";
    xcb_prefetch_extension_data(connection, &xcb_dpms_id);
    return xcb_query_extension(connection, name.size(), name.data()).sequence;
}

} // namespace

DisplayPower::DisplayPower(std::function<void(bool)> onChange)
    : m_onChange(std::move(onChange))
{
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
}

DisplayPower::~DisplayPower()
{
    setLooking(false);
}

void DisplayPower::setLooking(bool isLooking)
{
    if (isLooking == m_timer.isActive() || m_question == Question::None) return;
    m_isFresh = false;
    if (!isLooking) {
        m_timer.stop();
        if (m_asked) xcb_discard_reply(x11Connection(), *std::exchange(m_asked, {}));
        return;
    }
    ask();
    pace();
}

void DisplayPower::look()
{
    void* answer = nullptr;
    xcb_generic_error_t* error = nullptr;
    if (!xcb_poll_for_reply(x11Connection(), *m_asked, &answer, &error)) return;
    const ReplyPtr<void> reply(answer, &std::free);
    std::free(error);
    m_asked.reset();
    const bool before = m_isOn;
    take(reply.get());
    if (m_question != Question::None) ask();
    pace();
    if (m_isOn != before) m_onChange(m_isOn);
}

void DisplayPower::ask()
{
    xcb_connection_t* const connection = x11Connection();
    if (m_question == Question::Extension) m_asked = askForExtension(connection);
    if (m_question == Question::Capable) m_asked = xcb_dpms_capable(connection).sequence;
    if (m_question == Question::Level) m_asked = xcb_dpms_info(connection).sequence;
    xcb_flush(connection);
}

void DisplayPower::take(const void* reply)
{
    const Question answered = std::exchange(m_question, Question::None);
    if (!reply) return;
    if (answered == Question::Extension && static_cast<const xcb_query_extension_reply_t*>(reply)->present)
        m_question = Question::Capable;
    if (answered == Question::Capable && static_cast<const xcb_dpms_capable_reply_t*>(reply)->capable)
        m_question = Question::Level;
    if (answered != Question::Level) return;
    m_question = Question::Level;
    m_isOn = static_cast<const xcb_dpms_info_reply_t*>(reply)->power_level == XCB_DPMS_DPMS_MODE_ON;
    m_isFresh = true;
}

void DisplayPower::pace()
{
    if (m_question == Question::None) return m_timer.stop();
    const auto span = m_isOn && m_isFresh ? whileOn : whileOff;
    if (!m_timer.isActive() || m_timer.intervalAsDuration() != span) m_timer.start(span);
}

} // namespace kestro
