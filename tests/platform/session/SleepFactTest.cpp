#include "platform/session/SleepFact.h"

#include "platform/session/FactTest.h"

#include <array>
#include <fcntl.h>
#include <unistd.h>

using namespace kestro;

namespace {

class SleepFactTest : public FactTest {
protected:
    void SetUp() override
    {
        offerDelay();
        m_fact = std::make_unique<SleepFact>(m_ours);
        ASSERT_TRUE(waitUntil([this] { return m_fact->isWaitedFor(); }));
    }
    void TearDown() override { ::close(m_watched); }

    /// What logind hands out next: one end of a pipe, the other end tells when all of the first are closed.
    void offerDelay()
    {
        if (m_watched >= 0) ::close(m_watched);
        std::array<int, 2> ends{};
        ASSERT_EQ(pipe2(ends.data(), O_NONBLOCK | O_CLOEXEC), 0);
        m_watched = ends[0];
        QDBusUnixFileDescriptor handed;
        handed.giveFileDescriptor(ends[1]);
        m_logind.answer(QStringLiteral("Inhibit"), {QVariant::fromValue(handed)});
    }
    void prepareForSleep(bool isStarting)
    {
        m_logind.signal(QStringLiteral("/org/freedesktop/login1"),
                        QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("PrepareForSleep"),
                        {isStarting});
    }
    [[nodiscard]] bool isGivenBack()
    {
        m_logind.answer(QStringLiteral("Inhibit"), {}); // the one that was kept to be handed out
        return waitUntil([this] {
            char byte = 0;
            return ::read(m_watched, &byte, 1) == 0;
        });
    }
    [[nodiscard]] qsizetype timesTaken() const { return m_logind.calls().count(QStringLiteral("Inhibit")); }

    FakeService m_logind{m_bus, QStringLiteral("org.freedesktop.login1")};
    int m_watched = -1;
    std::unique_ptr<SleepFact> m_fact;
};

} // namespace

TEST_F(SleepFactTest, machine_isAsleep_betweenBothNotices)
{
    EXPECT_TRUE(asked(*m_fact).isEmpty());
    prepareForSleep(true);
    EXPECT_TRUE(comesToHave(*m_fact, 1));
    EXPECT_EQ(m_fact->hindrances().value(0).kind, HindranceKind::Asleep);
    prepareForSleep(false);
    EXPECT_TRUE(comesToHave(*m_fact, 0));
}

TEST_F(SleepFactTest, delay_isGivenBack_whenTheSaverHasGone)
{
    prepareForSleep(true);
    ASSERT_TRUE(comesToHave(*m_fact, 1));
    EXPECT_TRUE(m_fact->isWaitedFor());
    m_fact->release();
    EXPECT_FALSE(m_fact->isWaitedFor());
    EXPECT_TRUE(isGivenBack());
}

TEST_F(SleepFactTest, delay_isKept_whenNothingWantsToSleep)
{
    m_fact->release();
    EXPECT_TRUE(m_fact->isWaitedFor());
}

TEST_F(SleepFactTest, delay_isGivenBack_whenNobodyReleasesIt)
{
    prepareForSleep(true);
    ASSERT_TRUE(comesToHave(*m_fact, 1));
    EXPECT_TRUE(waitUntil([this] { return !m_fact->isWaitedFor(); }));
}

TEST_F(SleepFactTest, delay_isTakenAnew_whenTheMachineWakesUp)
{
    prepareForSleep(true);
    ASSERT_TRUE(comesToHave(*m_fact, 1));
    m_fact->release();
    offerDelay();
    prepareForSleep(false);
    EXPECT_TRUE(waitUntil([this] { return m_fact->isWaitedFor(); }));
    EXPECT_EQ(timesTaken(), 2);
}

TEST_F(SleepFactTest, fact_answersAtOnce_whenLogindHangs)
{
    m_logind.hang();
    SleepFact fact(m_ours);
    EXPECT_TRUE(asked(fact).isEmpty());
    EXPECT_FALSE(fact.isWaitedFor());
}
