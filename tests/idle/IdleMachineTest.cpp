#include "idle/IdleMachine.h"

#include "platform/base/Clock.h"

#include <array>
#include <gtest/gtest.h>
#include <random>

namespace kestro {

namespace {

using State = IdleMachine::State;
using End = IdleMachine::End;

const Hindrance locked{HindranceKind::Locked, {}, {}};
const Hindrance asleep{HindranceKind::Asleep, {}, {}};
const Hindrance lidClosed{HindranceKind::LidClosed, {}, {}};
const Hindrance onBattery{HindranceKind::Battery, {}, {}};
const Hindrance film{HindranceKind::Inhibited, QStringLiteral("Firefox"), QStringLiteral("playing video")};

} // namespace

class IdleMachineTest : public testing::Test {
protected:
    void showBecauseIdle()
    {
        m_machine.personIdle();
        m_machine.answered({});
        ASSERT_EQ(m_machine.state(), State::Showing);
    }

    ManualClock m_clock;
    int m_asked = 0;
    int m_started = 0;
    int m_stopped = 0;
    IdleMachine m_machine{m_clock, {[this] { ++m_asked; }, [this] { ++m_started; }, [this] { ++m_stopped; }}};
};

TEST_F(IdleMachineTest, asks_whenThePersonIsAway)
{
    EXPECT_EQ(m_machine.state(), State::Active);
    m_machine.personIdle();
    EXPECT_EQ(m_machine.state(), State::Asked);
    EXPECT_EQ(m_asked, 1);
    EXPECT_EQ(m_started, 0);
}

TEST_F(IdleMachineTest, shows_whenNothingIsAgainstIt)
{
    showBecauseIdle();
    EXPECT_EQ(m_started, 1);
}

TEST_F(IdleMachineTest, waits_whenSomethingIsAgainstIt_andAsksAgainWhenThatHasGone)
{
    m_machine.personIdle();
    m_machine.answered({film});
    EXPECT_EQ(m_machine.state(), State::Idle);
    EXPECT_EQ(m_machine.hindrances(), QList<Hindrance>{film});
    m_machine.hindrancesChanged({film, locked});
    EXPECT_EQ(m_asked, 1);
    m_machine.hindrancesChanged({});
    EXPECT_EQ(m_asked, 2);
    EXPECT_EQ(m_machine.state(), State::Asked);
    EXPECT_EQ(m_started, 0);
}

TEST_F(IdleMachineTest, looksOnceAMinute_whileSomethingIsAgainstIt)
{
    EXPECT_FALSE(m_machine.secondsToLook());
    m_machine.personIdle();
    EXPECT_FALSE(m_machine.secondsToLook());
    m_machine.answered({film});
    EXPECT_EQ(m_machine.secondsToLook(), 60);
    m_clock.advance(45);
    EXPECT_EQ(m_machine.secondsToLook(), 15);
    m_clock.advance(100);
    EXPECT_EQ(m_machine.secondsToLook(), 0);
    m_machine.look();
    EXPECT_EQ(m_asked, 2);
}

TEST_F(IdleMachineTest, doesNotLook_whenNothingIsWaitedFor)
{
    m_machine.look();
    EXPECT_EQ(m_asked, 0);
    showBecauseIdle();
    m_machine.look();
    EXPECT_EQ(m_asked, 1);
    EXPECT_FALSE(m_machine.secondsToLook());
}

TEST_F(IdleMachineTest, startsNothing_whenTheAnswerComesAfterThePerson)
{
    m_machine.personIdle();
    m_machine.personActive();
    m_machine.answered({});
    EXPECT_EQ(m_machine.state(), State::Active);
    EXPECT_EQ(m_started, 0);
}

TEST_F(IdleMachineTest, endsIt_whenThePersonIsBack)
{
    showBecauseIdle();
    m_machine.personActive();
    EXPECT_EQ(m_stopped, 1);
    EXPECT_EQ(m_machine.state(), State::Ended);
    EXPECT_EQ(m_machine.lastEnd(), End::PersonBack);
    m_machine.saverEnded(false);
    EXPECT_EQ(m_machine.state(), State::Active);
}

TEST_F(IdleMachineTest, endsIt_forWhatMustNotBeCovered)
{
    const std::array<std::pair<Hindrance, End>, 4> rows{{{locked, End::Locked},
                                                         {asleep, End::Asleep},
                                                         {lidClosed, End::LidClosed},
                                                         {onBattery, End::Battery}}};
    for (const auto& [hindrance, end] : rows) {
        const int before = m_stopped;
        m_machine.personActive();
        showBecauseIdle();
        m_machine.hindrancesChanged({film, hindrance});
        EXPECT_EQ(m_stopped, before + 1);
        EXPECT_EQ(m_machine.lastEnd(), end);
        m_machine.saverEnded(true);
        m_machine.answered({hindrance});
    }
}

TEST_F(IdleMachineTest, goesOn_whenAProgramInhibitsWhileItShows)
{
    showBecauseIdle();
    m_machine.hindrancesChanged({film});
    EXPECT_EQ(m_machine.state(), State::Showing);
    EXPECT_EQ(m_stopped, 0);
}

TEST_F(IdleMachineTest, staysDown_afterALock_untilThePersonHasBeenThere)
{
    showBecauseIdle();
    m_machine.hindrancesChanged({locked});
    m_machine.saverEnded(false);
    EXPECT_EQ(m_machine.state(), State::Ended);
    m_machine.hindrancesChanged({});
    m_machine.personIdle();
    EXPECT_EQ(m_asked, 1);
    m_machine.personActive();
    EXPECT_EQ(m_machine.state(), State::Active);
    m_machine.personIdle();
    EXPECT_EQ(m_asked, 2);
}

TEST_F(IdleMachineTest, showsAgain_whenTheLidOrTheBatteryAllowsIt)
{
    for (const Hindrance& hindrance : {lidClosed, onBattery}) {
        m_machine.personActive();
        showBecauseIdle();
        m_machine.hindrancesChanged({hindrance});
        m_machine.saverEnded(false);
        EXPECT_EQ(m_machine.state(), State::Asked);
        m_machine.answered({hindrance});
        EXPECT_EQ(m_machine.state(), State::Idle);
        m_machine.hindrancesChanged({});
        m_machine.answered({});
        EXPECT_EQ(m_machine.state(), State::Showing);
        m_machine.personActive();
        m_machine.saverEnded(false);
    }
}

TEST_F(IdleMachineTest, waitsForThePerson_whenTheSaverHasEndedByItself)
{
    showBecauseIdle();
    m_machine.saverEnded(false);
    EXPECT_EQ(m_machine.lastEnd(), End::ByItself);
    EXPECT_EQ(m_machine.state(), State::Ended);
    m_machine.personActive();
    EXPECT_EQ(m_machine.state(), State::Active);
}

TEST_F(IdleMachineTest, startsItThreeTimesMore_whenItBreaksOff)
{
    showBecauseIdle();
    for (int crash = 1; crash <= 3; ++crash) {
        m_machine.saverEnded(true);
        EXPECT_EQ(m_started, 1 + crash);
    }
    m_machine.saverEnded(true);
    EXPECT_EQ(m_started, 4);
    EXPECT_EQ(m_machine.lastEnd(), End::Crashed);
    EXPECT_EQ(m_machine.crashes(), 4);
    EXPECT_EQ(m_machine.state(), State::Ended);
}

TEST_F(IdleMachineTest, triesABrokenSaverOnceMore_eachTimeThePersonWasThere)
{
    showBecauseIdle();
    for (int crash = 0; crash < 4; ++crash)
        m_machine.saverEnded(true);
    m_machine.personActive();
    showBecauseIdle();
    EXPECT_EQ(m_started, 5);
    m_machine.saverEnded(true);
    EXPECT_EQ(m_started, 5);
    m_machine.personActive();
    showBecauseIdle();
    m_machine.personActive();
    EXPECT_EQ(m_machine.crashes(), 0);
}

TEST_F(IdleMachineTest, showsNow_whenAsked_andEndsAsAlways)
{
    m_machine.showNow();
    EXPECT_EQ(m_started, 1);
    m_machine.showNow();
    EXPECT_EQ(m_started, 1);
    m_machine.saverEnded(false);
    EXPECT_EQ(m_machine.state(), State::Active);
    m_machine.hindrancesChanged({film});
    m_machine.showNow();
    EXPECT_EQ(m_started, 2);
}

TEST_F(IdleMachineTest, doesNotShowNow_whileLocked)
{
    m_machine.hindrancesChanged({locked});
    m_machine.showNow();
    EXPECT_EQ(m_started, 0);
}

namespace {

/// A week of a session whose services, person and saver do whatever they like, beside what must be true of
/// it.
class Week final {
public:
    void happen()
    {
        m_clock.advance(60.48);
        switch (m_chance() % 8) {
        case 0:
            m_machine.personIdle();
            break;
        case 1:
            m_machine.personActive();
            break;
        case 2:
            m_machine.hindrancesChanged(change());
            break;
        case 3:
            answer();
            break;
        case 4:
            saverEnds(m_chance() % 2 == 0);
            break;
        case 5:
            m_machine.showNow();
            break;
        case 6:
            m_machine.look();
            break;
        default:
            stopCompletes();
            break;
        }
        check();
    }
    /// From wherever it is now, a session that calms down gets its saver.
    void calmDown()
    {
        m_known.clear();
        m_machine.hindrancesChanged({});
        stopCompletes();
        m_machine.personActive();
        stopCompletes();
        EXPECT_EQ(m_machine.state(), State::Active);
        m_machine.personIdle();
        answer();
        EXPECT_EQ(m_machine.state(), State::Showing);
    }
    [[nodiscard]] int shows() const { return m_shows; }

private:
    QList<Hindrance> change()
    {
        const std::array all{locked, asleep, lidClosed, onBattery, film};
        const Hindrance& one = all.at(m_chance() % all.size());
        if (!m_known.removeOne(one)) m_known.append(one);
        return m_known;
    }
    void answer()
    {
        if (m_machine.state() == State::Asked) m_machine.answered(m_known);
    }
    void saverEnds(bool hasBrokenOff)
    {
        if (!m_isRunning) return;
        m_isRunning = m_isStopping = false;
        m_machine.saverEnded(hasBrokenOff);
    }
    void stopCompletes()
    {
        if (m_isStopping) saverEnds(false);
    }
    void check()
    {
        const bool isShowing = m_machine.state() == State::Showing;
        EXPECT_EQ(m_isRunning && !m_isStopping, isShowing);
        for (const Hindrance& mustNotBeCovered : {locked, asleep, lidClosed, onBattery})
            if (m_machine.hindrances().contains(mustNotBeCovered)) {
                EXPECT_FALSE(isShowing);
            }
        if (m_known.contains(locked)) {
            EXPECT_FALSE(isShowing);
        }
    }

    ManualClock m_clock;
    std::mt19937 m_chance{7}; // NOLINT(cert-msc51-cpp): the same week each time
    QList<Hindrance> m_known;
    bool m_isRunning = false;
    bool m_isStopping = false;
    int m_shows = 0;
    IdleMachine m_machine{m_clock,
                          {[] {},
                           [this] {
                               EXPECT_FALSE(m_isRunning);
                               m_isRunning = true;
                               ++m_shows;
                           },
                           [this] {
                               EXPECT_TRUE(m_isRunning);
                               m_isStopping = true;
                           }}};
};

} // namespace

TEST(IdleMachineWeek, neverShowsWhileLocked_andFindsAWayOutOfEveryState)
{
    Week week;
    for (int event = 0; event < 10000; ++event) {
        week.happen();
        if (event % 100 == 0) week.calmDown();
    }
    EXPECT_GT(week.shows(), 500);
}

TEST_F(IdleMachineTest, inputThatTheSaverHears_leavesTheEndToIt)
{
    showBecauseIdle();
    m_machine.personStirred();
    EXPECT_EQ(m_machine.state(), State::Showing);
    EXPECT_EQ(m_stopped, 0);
    m_machine.saverEnded(false);
    EXPECT_EQ(m_machine.state(), State::Active);
}

TEST_F(IdleMachineTest, inputThatTheSaverHears_countsAsEver_whileNoneShows)
{
    m_machine.personIdle();
    m_machine.answered({film});
    m_machine.personStirred();
    EXPECT_EQ(m_machine.state(), State::Active);
}

} // namespace kestro
