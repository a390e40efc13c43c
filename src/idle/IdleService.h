#pragma once

#include "idle/IdleMachine.h"
#include "idle/IdleSaver.h"
#include "idle/IdleStatus.h"
#include "platform/session/IdleSource.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace kestro {

class Clock;

/// Starts the saver when the person is away and ends it when they are back: it brings what the session tells
/// to the machine that decides, and does what that says. While another service looks after the session it
/// does nothing. It waits for events alone. Owned by the program. Main thread.
class IdleService final {
public:
    struct Parts {
        std::unique_ptr<IdleSource> source;
        std::vector<std::unique_ptr<SessionFact>> facts;
        std::unique_ptr<SessionFact> rivals; ///< whose answer tells whether another service does all this
        std::unique_ptr<IdleSaver> saver;
    };

    IdleService(const Clock& clock, Parts parts, std::chrono::seconds after);
    ~IdleService();
    IdleService(const IdleService&) = delete;
    IdleService& operator=(const IdleService&) = delete;

    /// Called from the event loop whenever status() may have changed.
    void setChangeHandler(std::function<void()> handler) { m_onChange = std::move(handler); }
    /// Called when the person is there again.
    void setBackHandler(std::function<void()> handler) { m_onBack = std::move(handler); }
    /// Called when nothing tells any more that the person is away. It may destroy this.
    void setLostHandler(std::function<void()> handler) { m_onLost = std::move(handler); }

    /// Whether input leaves a saver that shows to itself, from now on: some of it is not to end it.
    void leaveInputToSaver(bool isLeft) { m_isInputLeft = isLeft; }
    /// Leaves the session to the service of that name; an empty one: looks after it again.
    void standAsideFor(const QString& rival);
    /// Another time without input, from now on.
    void setAfter(std::chrono::seconds after);
    /// Shows the saver now.
    void showNow() { show(true); }
    /// The same, or ends it as when the person comes back.
    void show(bool isShown);
    /// As if the person had done something.
    void simulateActivity();
    /// Finds out whether another service looks after the session.
    void lookForRival();
    /// From the saver's start until its process is gone.
    [[nodiscard]] bool isSaverRunning() const { return m_machine.isSaverRunning(); }
    /// Seconds without input, as far as known: 0 until the person counts as away.
    [[nodiscard]] double idleSeconds() const;
    [[nodiscard]] IdleStatus status() const;

private:
    void watch();
    void personIdle();
    void personActive();
    void inputHeard();
    void ask();
    void startSaver();
    void after(const std::function<void()>& step);
    [[nodiscard]] QList<Hindrance> hindrances() const;

    const Clock& m_clock;
    Parts m_parts;
    std::chrono::seconds m_after;
    std::optional<double> m_awaySince; ///< when the person was told to be away
    QString m_rival;
    bool m_isInputLeft = false; ///< to a saver that shows
    std::function<void()> m_onChange;
    std::function<void()> m_onBack;
    std::function<void()> m_onLost;
    QTimer m_look;
    unsigned m_question = 0; ///< the one whose answers count
    std::size_t m_unanswered = 0;
    IdleMachine m_machine;
};

} // namespace kestro
