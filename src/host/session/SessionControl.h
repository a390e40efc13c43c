#pragma once

#include "platform/saver/SaverControl.h"
#include "platform/session/MediaPlayerOnBus.h"
#include "platform/session/SaverOnBus.h"

#include <functional>

namespace kestro {

class ConfigurationFile;
class HostedSaver;
class SaverSession;

/// Has a session do what other programs of the person's session ask of it over the bus: other movies on all
/// screens, or its end; and tells them what the first screen shows, as a media player too while it is heard.
/// Owned by the program, which outlives it with the session. Main thread. Tested by test_control.
class SessionControl final {
public:
    /// Whether a person wants that: "bus" in [control] of kestro.conf, which is no, or yes. No, with a line
    /// in the log, where that is not understood.
    [[nodiscard]] static bool isWanted(const ConfigurationFile& file);

    /// Takes the session's tick and rest handlers. `stop` ends the program.
    SessionControl(SaverSession& session, const std::function<void()>& stop);

private:
    void ticked(const HostedSaver& saver);
    void shows(const std::optional<SaverSnapshot::Movie>& movie);

    SaverSession& m_session;
    SaverOnBus m_bus;
    MediaPlayerOnBus m_player;
    QString m_text; ///< of the URL that shows
    QUrl m_url;
};

} // namespace kestro
