#pragma once

#include "platform/session/PowerRule.h"
#include "platform/session/ScreenSaverService.h"

#include <QDBusConnection>

#include <chrono>
#include <memory>
#include <vector>

namespace kestro {

class GamePadFact;
class LockFact;
class PowerFact;
class SleepFact;

/// Everything of the session that may be a reason not to show a saver. Those with a name here can be told
/// something; they are among `all` too, which owns them. Main thread.
struct SessionFacts {
    std::unique_ptr<LogindSession> logind; ///< used by several of them: it goes last
    std::vector<std::unique_ptr<SessionFact>> all;
    ScreenSaverService* service = nullptr;
    LockFact* lock = nullptr;
    SleepFact* sleep = nullptr;
    PowerFact* power = nullptr;
    GamePadFact* gamePads = nullptr;

    SessionFacts();
    SessionFacts(SessionFacts&&) noexcept;
    SessionFacts& operator=(SessionFacts&&) = delete;
    ~SessionFacts();
};

/// What they need.
struct SessionFactsNeeds {
    QDBusConnection sessionBus;
    QDBusConnection systemBus;
    Random& random;
    const Clock& clock;
    PowerRule powerRule;
    std::chrono::seconds padSpan{300}; ///< for so long a press on a game pad counts
};

/// All facts that this desktop has, by XDG_CURRENT_DESKTOP and by what it is displayed on.
[[nodiscard]] SessionFacts sessionFacts(const SessionFactsNeeds& needs);

} // namespace kestro
