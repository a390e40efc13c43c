#pragma once

#include "platform/display/desktop/x11/FocusHold.h"
#include "platform/display/desktop/x11/RawInput.h"
#include "platform/display/surface/Surface.h"

#include <QTimer>

#include <bitset>
#include <chrono>
#include <functional>
#include <memory>

struct xcb_connection_t;

namespace kestro {

/// What a person does anywhere in an X11 session while our surfaces cover it. Nothing is grabbed, so a screen
/// locker gets the keyboard and the pointer whenever it wants them: what is pressed comes here because the
/// input focus does, and is heard besides where a window manager gave that away. Owned by the desktop. Main
/// thread. Tested by test_session.
class SessionInput final {
public:
    using Handler = std::function<void(InputEvent::Kind, InputEvent::Key)>;
    using Codes = std::bitset<256>; ///< keys or buttons by their numbers

    /// Takes the focus; null where the desktop is not X11. The surfaces are shown already. With `tellsKeys` a
    /// key is told by its name where it reached nobody else; every other key is Key::Other.
    [[nodiscard]] static std::unique_ptr<SessionInput> create(Handler handler, bool tellsKeys);

    /// From now on whatever a person does reaches nobody, on any monitor, unless a locker has it: the
    /// surfaces may go.
    void swallow();
    /// Calls `done` as soon as nothing is down any more that was pressed since the focus was taken, at the
    /// latest after `bound`. It may be called before this returns.
    void whenLetGo(std::chrono::seconds bound, std::function<void()> done);

    /// Gives the focus to who had it.
    void giveBack() { m_focus.giveBack(); }

private:
    SessionInput(xcb_connection_t* connection, Handler handler, bool tellsKeys);

    void hear(const RawInput::Event& event);
    void keyPressed(std::uint32_t code);
    [[nodiscard]] InputEvent::Key nameOf(std::uint32_t code) const;
    void buttonPressed(std::uint32_t code);
    void buttonReleased(std::uint32_t code);
    void look();
    [[nodiscard]] bool isSomethingDown() const;
    void end();

    xcb_connection_t* m_connection;
    Handler m_handler;
    bool m_tellsKeys;
    FocusHold m_focus;
    std::unique_ptr<RawInput> m_raw; ///< null where the X server has none: what the focus brings has to do
    Codes m_pressedKeys;             ///< since the focus was taken
    Codes m_buttons;                 ///< that are down, as far as was heard
    bool m_isSwallowing = false;
    std::function<void()> m_done;
    QTimer m_bound;
};

} // namespace kestro
