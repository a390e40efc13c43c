#include "idle/IdleService.h"

#include "platform/base/Clock.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace kestro {

namespace {

using State = IdleMachine::State;
using namespace std::chrono_literals;

const Hindrance film{HindranceKind::Inhibited, QStringLiteral("Firefox"), QStringLiteral("playing video")};
const Hindrance locked{HindranceKind::Locked, {}, {}};

/// A session that does what a test says.
struct FakeSession {
    std::chrono::milliseconds span{};
    IdleSource::Handlers handlers;
    std::vector<std::function<void()>> questions; ///< that are not answered yet
    bool answersAtOnce = true;
    QList<Hindrance> known;
    IdleSaver::EndHandler onEnd;
    int starts = 0;
    int stops = 0;
};

class FakeSource final : public IdleSource {
public:
    explicit FakeSource(FakeSession& session)
        : m_session(session)
    {
    }
    [[nodiscard]] QString name() const override { return QStringLiteral("fake"); }
    void watch(std::chrono::milliseconds span, Handlers handlers) override
    {
        m_session.span = span;
        m_session.handlers = std::move(handlers);
    }

private:
    FakeSession& m_session;
};

class FakeFact final : public SessionFact {
public:
    explicit FakeFact(FakeSession& session)
        : m_session(session)
    {
    }
    void ask(std::function<void()> onAnswer) override
    {
        if (m_session.answersAtOnce)
            onAnswer();
        else
            m_session.questions.push_back(std::move(onAnswer));
    }
    [[nodiscard]] QList<Hindrance> hindrances() const override { return m_session.known; }
    void become(const QList<Hindrance>& known)
    {
        m_session.known = known;
        changed();
    }

private:
    FakeSession& m_session;
};

class FakeSaver final : public IdleSaver {
public:
    explicit FakeSaver(FakeSession& session)
        : m_session(session)
    {
    }
    void start(EndHandler onEnd) override
    {
        ++m_session.starts;
        m_session.onEnd = std::move(onEnd);
    }
    void stop() override { ++m_session.stops; }

private:
    FakeSession& m_session;
};

} // namespace

class IdleServiceTest : public testing::Test {
protected:
    IdleServiceTest()
    {
        auto fact = std::make_unique<FakeFact>(m_session);
        m_fact = fact.get();
        IdleService::Parts parts{std::make_unique<FakeSource>(m_session),
                                 {},
                                 std::make_unique<FakeFact>(m_rivals),
                                 std::make_unique<FakeSaver>(m_session)};
        parts.facts.push_back(std::move(fact));
        m_service = std::make_unique<IdleService>(m_clock, std::move(parts), 5min);
        m_service->setChangeHandler([this] { ++m_changes; });
    }

    void goAway()
    {
        m_session.handlers.onIdle();
        QCoreApplication::sendPostedEvents();
    }
    void endSaver(bool hasBrokenOff)
    {
        std::exchange(m_session.onEnd, nullptr)(hasBrokenOff);
        QCoreApplication::sendPostedEvents();
    }
    [[nodiscard]] State state() const { return m_service->status().state; }

    FakeSession m_session;
    FakeSession m_rivals;
    ManualClock m_clock;
    FakeFact* m_fact = nullptr;
    int m_changes = 0;
    std::unique_ptr<IdleService> m_service;
};

TEST_F(IdleServiceTest, watchesForTheSpan_andForAnotherOne)
{
    EXPECT_EQ(m_session.span, 5min);
    EXPECT_EQ(m_service->status().after, 5min);
    EXPECT_EQ(m_service->status().source, QStringLiteral("fake"));
    m_service->setAfter(90s);
    EXPECT_EQ(m_session.span, 90s);
}

TEST_F(IdleServiceTest, startsTheSaver_whenThePersonIsAwayAndNothingIsAgainstIt)
{
    goAway();
    EXPECT_EQ(m_session.starts, 1);
    EXPECT_EQ(state(), State::Showing);
    EXPECT_GT(m_changes, 0);
}

TEST_F(IdleServiceTest, asksFirst_andWaitsForTheAnswer)
{
    m_session.answersAtOnce = false;
    goAway();
    EXPECT_EQ(state(), State::Asked);
    ASSERT_EQ(m_session.questions.size(), 1U);
    m_session.known = {film};
    m_session.questions.front()();
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(m_session.starts, 0);
    EXPECT_EQ(m_service->status().hindrances, QList<Hindrance>{film});
}

TEST_F(IdleServiceTest, startsIt_whenWhatWasAgainstItHasGone)
{
    m_session.known = {film};
    goAway();
    EXPECT_EQ(m_session.starts, 0);
    m_fact->become({});
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(m_session.starts, 1);
}

TEST_F(IdleServiceTest, hearsNoAnswer_toAQuestionOfBefore)
{
    m_session.answersAtOnce = false;
    goAway();
    m_session.handlers.onActive();
    goAway();
    ASSERT_EQ(m_session.questions.size(), 2U);
    m_session.questions.front()();
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(state(), State::Asked);
    m_session.questions.back()();
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(state(), State::Showing);
}

TEST_F(IdleServiceTest, endsIt_whenThePersonIsBackOrTheSessionIsLocked)
{
    goAway();
    m_session.handlers.onActive();
    EXPECT_EQ(m_session.stops, 1);
    endSaver(false);
    EXPECT_EQ(state(), State::Active);
    goAway();
    m_fact->become({locked});
    EXPECT_EQ(m_session.stops, 2);
}

TEST_F(IdleServiceTest, leavesInputToIt_whereThatWasChosen_butNotWhatProgramsSay)
{
    m_service->leaveInputToSaver(true);
    goAway();
    m_session.handlers.onActive();
    EXPECT_EQ(m_session.stops, 0);
    EXPECT_EQ(state(), State::Showing);
    EXPECT_EQ(m_service->idleSeconds(), 0);
    m_service->simulateActivity();
    EXPECT_EQ(m_session.stops, 1);
}

TEST_F(IdleServiceTest, startsItAgain_whenItBreaksOff)
{
    goAway();
    endSaver(true);
    EXPECT_EQ(m_session.starts, 2);
    EXPECT_EQ(m_service->status().crashes, 1);
}

TEST_F(IdleServiceTest, showsItNow_butNotWhileLocked)
{
    m_fact->become({locked});
    m_service->showNow();
    EXPECT_EQ(m_session.starts, 0);
    m_fact->become({});
    m_service->showNow();
    EXPECT_EQ(m_session.starts, 1);
}

TEST_F(IdleServiceTest, standsAside_whileARivalRuns)
{
    goAway();
    m_service->standAsideFor(QStringLiteral("xscreensaver"));
    EXPECT_EQ(m_session.stops, 1);
    endSaver(false);
    goAway();
    EXPECT_EQ(m_session.starts, 1);
    EXPECT_EQ(m_service->status().rival, QStringLiteral("xscreensaver"));
    m_service->standAsideFor({});
    goAway();
    EXPECT_EQ(m_session.starts, 2);
}

TEST_F(IdleServiceTest, waitsForTheAnswerAboutRivals_beforeItStarts)
{
    m_rivals.answersAtOnce = false;
    goAway();
    EXPECT_EQ(m_session.starts, 0);
    ASSERT_EQ(m_rivals.questions.size(), 1U);
    m_rivals.questions.front()();
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(m_session.starts, 1);
}

TEST_F(IdleServiceTest, asksForTheRivalAlone_whileOneRuns)
{
    m_session.answersAtOnce = m_rivals.answersAtOnce = false;
    m_service->standAsideFor(QStringLiteral("xscreensaver"));
    goAway();
    m_service->lookForRival();
    EXPECT_EQ(m_rivals.questions.size(), 2U);
    EXPECT_TRUE(m_session.questions.empty());
}

TEST_F(IdleServiceTest, tells_whenNothingTellsOfThePersonAnyMore)
{
    bool isLost = false;
    m_service->setLostHandler([&] { isLost = true; });
    m_session.handlers.onLost();
    EXPECT_TRUE(isLost);
}

} // namespace kestro
