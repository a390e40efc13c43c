#pragma once

#include "platform/session/SessionFact.h"

#include <functional>
#include <optional>

namespace kestro {

class Clock;

/// When the saver is started by itself and when it is ended: a machine of states that is told what happens
/// and answers by its actions. It knows no service, no process and no timer. Owned by the idle service. Main
/// thread.
class IdleMachine final {
public:
    enum class State {
        Active, ///< the person is there
        Idle,   ///< the person is away, and something is against showing the saver
        Asked,  ///< the person is away; what is against it is being found out
        Showing,
        Ended, ///< it was shown, or would not start, and the person has to come back first
    };
    /// Why the saver is not shown any more.
    enum class End { PersonBack, ByItself, Locked, Asleep, LidClosed, Battery, Crashed };

    /// What the machine has done. None of them may call it back before it returns.
    struct Actions {
        std::function<void()> ask;   ///< find out what is against it, then call answered()
        std::function<void()> start; ///< start the saver; saverEnded() tells of its end
        std::function<void()> stop;  ///< end it; saverEnded() follows
    };

    /// Between two looks at what nobody tells of, while the person is away and something is against showing.
    static constexpr double lookEvery = 60; // seconds
    /// A saver that breaks off is started again so often; then it has to have run well once.
    static constexpr int mostRestarts = 3;

    IdleMachine(const Clock& clock, Actions actions);

    void personIdle();
    void personActive();
    /// The same, told by input that a saver which shows hears of as well: it ends by itself where that is
    /// meant to end it.
    void personStirred();
    /// What is against showing, asked for by `ask`. Not heard in another state than Asked.
    void answered(const QList<Hindrance>& hindrances);
    /// What is known without having been asked for has changed.
    void hindrancesChanged(const QList<Hindrance>& hindrances);
    /// The saver that was started is gone: by itself or because it was stopped, or broken off.
    void saverEnded(bool hasBrokenOff);
    /// Shows it although the person is there; nothing while it shows, or while the session is locked.
    void showNow();
    /// To be called when secondsToLook() have gone by.
    void look();

    [[nodiscard]] State state() const { return m_state; }
    /// From its start until saverEnded().
    [[nodiscard]] bool isSaverRunning() const { return m_isRunning; }
    /// What is against showing it, as far as known; empty while it shows.
    [[nodiscard]] const QList<Hindrance>& hindrances() const { return m_hindrances; }
    /// Why it was ended the last time; nothing before the first.
    [[nodiscard]] std::optional<End> lastEnd() const { return m_lastEnd; }
    /// How often in a row it broke off.
    [[nodiscard]] int crashes() const { return m_crashes; }
    /// How long until look() is to be called; nothing where it need not be.
    [[nodiscard]] std::optional<double> secondsToLook() const;

private:
    void ask();
    void start();
    void end(End why);
    void wentBy();
    void brokeOff();

    const Clock& m_clock;
    Actions m_actions;
    State m_state = State::Active;
    QList<Hindrance> m_hindrances;
    std::optional<End> m_lastEnd;
    double m_answeredAt = 0;
    int m_crashes = 0;
    bool m_isAway = false;    ///< the person is, as far as was told
    bool m_isRunning = false; ///< the saver is, from its start until saverEnded()
};

} // namespace kestro
