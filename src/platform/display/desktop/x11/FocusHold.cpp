#include "platform/display/desktop/x11/FocusHold.h"

#include "platform/display/surface/x11/RootStack.h"
#include "platform/display/surface/x11/X11Connection.h"

#include <QCoreApplication>

#include <limits>
#include <utility>
#include <xcb/xcb.h>

namespace kestro {

namespace {

/// How often the focus is taken back from somebody who takes it again and again.
constexpr std::chrono::milliseconds pace{500};

} // namespace

FocusHold::FocusHold(xcb_connection_t* connection, Handlers handlers)
    : m_connection(connection)
    , m_handlers(std::move(handlers))
    , m_takeBack(pace, [this] { takeBack(); })
{
    QCoreApplication::instance()->installNativeEventFilter(this);
    createWindow();
    m_owner = {XCB_INPUT_FOCUS_POINTER_ROOT, XCB_INPUT_FOCUS_POINTER_ROOT};
    m_question = xcb_get_input_focus(m_connection).sequence;
    take();
}

FocusHold::~FocusHold()
{
    if (auto* application = QCoreApplication::instance()) application->removeNativeEventFilter(this);
    if (m_question) xcb_discard_reply(m_connection, *m_question);
    xcb_destroy_window(m_connection, m_window);
}

// A window can have the focus only while it is shown; where that is does not matter.
void FocusHold::createWindow()
{
    m_window = xcb_generate_id(m_connection);
    const std::uint32_t values[] = {1, XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE |
                                           XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE |
                                           XCB_EVENT_MASK_POINTER_MOTION | XCB_EVENT_MASK_FOCUS_CHANGE};
    xcb_create_window(m_connection, 0, m_window, rootWindow().value_or(XCB_WINDOW_NONE), -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT,
                      XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    xcb_map_window(m_connection, m_window);
}

void FocusHold::take()
{
    focusOn({m_window, XCB_INPUT_FOCUS_POINTER_ROOT});
}

// Whoever it is may be gone by now: then nothing happens.
void FocusHold::focusOn(const Owner& owner)
{
    const auto cookie =
        xcb_set_input_focus_checked(m_connection, owner.revertTo, owner.window, XCB_CURRENT_TIME);
    xcb_discard_reply(m_connection, cookie.sequence);
    xcb_flush(m_connection);
}

std::optional<FocusHold::Owner> FocusHold::currentOwner() const
{
    const ReplyPtr<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr), &std::free);
    return reply ? std::optional(Owner{reply->focus, reply->revert_to}) : std::nullopt;
}

/// Reads the answer that came before the focus did.
void FocusHold::noteOwner()
{
    if (!m_question) return;
    const xcb_get_input_focus_cookie_t cookie{*std::exchange(m_question, std::nullopt)};
    const ReplyPtr<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(m_connection, cookie, nullptr), &std::free);
    if (reply) m_owner = {reply->focus, reply->revert_to};
}

void FocusHold::takeBack()
{
    noteOwner();
    const auto owner = currentOwner();
    if (m_isContent || !owner || owner->window == m_window) return;
    const auto stack = RootStack::read(m_connection);
    if (stack.locker() != 0 || stack.isOfLocker(owner->window)) return;
    m_owner = *owner;
    take();
}

void FocusHold::cover()
{
    m_isContent = true;
    constexpr auto everything = std::uint32_t{std::numeric_limits<std::int16_t>::max()};
    const std::uint32_t values[] = {0, 0, everything, everything, XCB_STACK_MODE_ABOVE};
    xcb_configure_window(m_connection, m_window,
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                             XCB_CONFIG_WINDOW_HEIGHT | XCB_CONFIG_WINDOW_STACK_MODE,
                         values);
    xcb_flush(m_connection);
}

void FocusHold::giveBack()
{
    m_isContent = true;
    noteOwner();
    const auto owner = currentOwner();
    if (!owner || owner->window != m_window) return;
    focusOn(m_owner);
    // A server that finds the connection closed may drop what it has not got to yet.
    static_cast<void>(currentOwner());
}

bool FocusHold::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*)
{
    if (eventType != "xcb_generic_event_t") return false;
    const auto& event = *static_cast<const xcb_generic_event_t*>(message);
    const auto* input = static_cast<const xcb_key_press_event_t*>(message); // a button's has the same shape
    const auto* focus = static_cast<const xcb_focus_in_event_t*>(message);  // as one that goes
    switch (event.response_type) {
    case XCB_KEY_PRESS:
        if (input->event == m_window) m_handlers.keyPressed(input->detail);
        break;
    case XCB_KEY_RELEASE:
    case XCB_BUTTON_RELEASE:
        if (input->event == m_window) m_handlers.released();
        break;
    case XCB_FOCUS_IN:
    case XCB_FOCUS_OUT:
        if (focus->event == m_window) focusMoved(focus->mode, event.response_type == XCB_FOCUS_IN);
        break;
    default:
        break;
    }
    return false;
}

void FocusHold::focusMoved(std::uint8_t mode, bool isOurs)
{
    m_hasKeyboard = isOurs && mode != XCB_NOTIFY_MODE_WHILE_GRABBED;
    if (isOurs) return noteOwner();
    // What goes because of a grab, or while there is one, is a locker's now, or back at once.
    if (mode == XCB_NOTIFY_MODE_NORMAL) m_takeBack.ask();
}

} // namespace kestro
