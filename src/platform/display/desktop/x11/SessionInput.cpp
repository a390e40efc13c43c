#include "platform/display/desktop/x11/SessionInput.h"

#include "platform/display/desktop/x11/PressedKey.h"
#include "platform/display/surface/x11/RootStack.h"
#include "platform/display/surface/x11/X11Connection.h"

#include <utility>

namespace kestro {

namespace {

constexpr unsigned buttonMask =
    XCB_BUTTON_MASK_1 | XCB_BUTTON_MASK_2 | XCB_BUTTON_MASK_3 | XCB_BUTTON_MASK_4 | XCB_BUTTON_MASK_5;

bool isButtonDown(xcb_connection_t* connection)
{
    const auto cookie = xcb_query_pointer(connection, rootWindow().value_or(XCB_WINDOW_NONE));
    const ReplyPtr<xcb_query_pointer_reply_t> pointer(xcb_query_pointer_reply(connection, cookie, nullptr),
                                                      &std::free);
    return pointer && (pointer->mask & buttonMask) != 0;
}

SessionInput::Codes keysDown(xcb_connection_t* connection)
{
    const ReplyPtr<xcb_query_keymap_reply_t> map(
        xcb_query_keymap_reply(connection, xcb_query_keymap(connection), nullptr), &std::free);
    SessionInput::Codes keys;
    for (std::size_t code = 0; map && code < keys.size(); ++code)
        keys[code] = (map->keys[code / 8] >> (code % 8) & 1) != 0;
    return keys;
}

} // namespace

std::unique_ptr<SessionInput> SessionInput::create(Handler handler, bool tellsKeys)
{
    xcb_connection_t* const connection = x11Connection();
    if (!connection) return nullptr;
    return std::unique_ptr<SessionInput>(new SessionInput(connection, std::move(handler), tellsKeys));
}

SessionInput::SessionInput(xcb_connection_t* connection, Handler handler, bool tellsKeys)
    : m_connection(connection)
    , m_handler(std::move(handler))
    , m_tellsKeys(tellsKeys)
    , m_focus(connection, {[this](std::uint8_t code) {
                               if (!m_raw) keyPressed(code);
                           },
                           [this] { look(); }})
    , m_raw(RawInput::create(connection, [this](const RawInput::Event& event) { hear(event); }))
{
    m_bound.setSingleShot(true);
    QObject::connect(&m_bound, &QTimer::timeout, &m_bound, [this] { end(); });
    xcb_flush(connection);
}

void SessionInput::hear(const RawInput::Event& event)
{
    using Kind = RawInput::Event::Kind;
    switch (event.kind) {
    case Kind::KeyPress:
        return keyPressed(event.code);
    case Kind::ButtonPress:
        return buttonPressed(event.code);
    case Kind::KeyRelease:
        return look();
    case Kind::ButtonRelease:
        return buttonReleased(event.code);
    case Kind::Motion:
        return m_handler(InputEvent::Kind::Motion, {});
    }
}

void SessionInput::keyPressed(std::uint32_t code)
{
    m_pressedKeys.set(code % m_pressedKeys.size());
    m_handler(InputEvent::Kind::Key, m_tellsKeys ? nameOf(code) : InputEvent::Key::Other);
}

// What a person types into a locker is heard here as well.
InputEvent::Key SessionInput::nameOf(std::uint32_t code) const
{
    const bool isOurs = m_focus.hasKeyboard() && RootStack::read(m_connection).locker() == 0;
    return isOurs ? pressedKey(m_connection, code) : InputEvent::Key::Other;
}

void SessionInput::buttonPressed(std::uint32_t code)
{
    m_buttons.set(code % m_buttons.size());
    m_handler(InputEvent::Kind::Button, {});
}

void SessionInput::buttonReleased(std::uint32_t code)
{
    m_buttons.reset(code % m_buttons.size());
    look();
}

void SessionInput::swallow()
{
    m_isSwallowing = RootStack::read(m_connection).locker() == 0;
    if (m_isSwallowing) m_focus.cover();
}

void SessionInput::whenLetGo(std::chrono::seconds bound, std::function<void()> done)
{
    m_done = std::move(done);
    m_bound.start(bound);
    look();
}

void SessionInput::look()
{
    if (m_done && !(m_isSwallowing && isSomethingDown())) end();
}

// A key that was down before, or that the server believes to be down for ever, is not waited for.
bool SessionInput::isSomethingDown() const
{
    return m_buttons.any() || isButtonDown(m_connection) || (keysDown(m_connection) & m_pressedKeys).any();
}

void SessionInput::end()
{
    m_bound.stop();
    if (const auto done = std::exchange(m_done, nullptr)) done();
}

} // namespace kestro
