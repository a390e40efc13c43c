#include "host/session/SessionKeys.h"

#include "host/session/SaverSession.h"
#include "platform/saver/SaverControl.h"

namespace kestro {

SessionKeys::SessionKeys(SaverSession& session)
    : m_session(session)
{
    session.setKeyHandler([this](const InputEvent& event) { return take(event); });
}

// Held down, a key is pressed once.
bool SessionKeys::take(const InputEvent& event)
{
    if (event.key == InputEvent::Key::Other) return false;
    if (!event.isRepeat) press(event.key);
    return true;
}

void SessionKeys::press(InputEvent::Key key)
{
    switch (key) {
    case InputEvent::Key::Right:
        return m_session.changeMovie(MovieStep::Next);
    case InputEvent::Key::Left:
        return m_session.changeMovie(MovieStep::Previous);
    case InputEvent::Key::Up:
        return m_session.act(SaverAct::Louder);
    case InputEvent::Key::Down:
        return m_session.act(SaverAct::Quieter);
    case InputEvent::Key::I:
        return m_session.act(SaverAct::ShowTitle);
    case InputEvent::Key::D:
        return m_session.act(SaverAct::NeverAgain);
    case InputEvent::Key::U:
        return m_session.act(SaverAct::TakeBack);
    case InputEvent::Key::Other:
        return;
    }
}

} // namespace kestro
