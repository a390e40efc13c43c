#pragma once

#include "platform/session/SaverOnBus.h"

#include <functional>

namespace kestro {

class ConfigurationFile;
class HostedSaver;
class SaverSession;

/// Has a session do what other programs of the person's session ask of it over the bus: other movies on all
/// screens, or its end; and tells them what the first screen shows. Owned by the program, which outlives it
/// with the session. Main thread. Tested by test_control.
class SessionControl final {
public:
    /// Whether a person wants that: "bus" in [control] of kestro.conf, which is no, or yes. No, with a line
    /// in the log, where that is not understood.
    [[nodiscard]] static bool isWanted(const ConfigurationFile& file);

    /// Takes the session's tick handler. `stop` ends the program.
    SessionControl(SaverSession& session, std::function<void()> stop);

private:
    void ticked(const HostedSaver& saver);

    SaverSession& m_session;
    SaverOnBus m_bus;
};

} // namespace kestro
