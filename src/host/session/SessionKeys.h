#pragma once

#include "platform/display/surface/Surface.h"

namespace kestro {

class SaverSession;

/// Has a session do what a person asks of it by keys that are not to end it: left and right for another
/// movie, up and down for the volume, I for what plays, D for never again, U to take that back. Owned by the
/// program, which outlives it with the session. Main thread.
class SessionKeys final {
public:
    /// Takes the session's key handler.
    explicit SessionKeys(SaverSession& session);

private:
    [[nodiscard]] bool take(const InputEvent& event);
    void press(InputEvent::Key key);

    SaverSession& m_session;
};

} // namespace kestro
