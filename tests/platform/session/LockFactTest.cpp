#include "platform/session/LockFact.h"

#include "platform/session/FactTest.h"
#include "platform/session/LogindSession.h"

#include <QDBusObjectPath>

using namespace kestro;

namespace {

const QString sessionPath = QStringLiteral("/org/freedesktop/login1/session/_37");
const QString sessionInterface = QStringLiteral("org.freedesktop.login1.Session");

class LockFactTest : public FactTest {
protected:
    void SetUp() override
    {
        qputenv("XDG_SESSION_ID", "7");
        m_logind.answer(QStringLiteral("GetSession"), {QVariant::fromValue(QDBusObjectPath(sessionPath))});
        m_logind.setValue(QStringLiteral("LockedHint"), false);
        m_fact = std::make_unique<LockFact>(m_ours, m_ours, m_session);
        ASSERT_TRUE(asked(*m_fact).isEmpty());
    }
    void TearDown() override { qunsetenv("XDG_SESSION_ID"); }

    void setHint(bool isLocked)
    {
        m_logind.setValue(QStringLiteral("LockedHint"), isLocked);
        m_logind.signalChange(sessionPath, sessionInterface);
    }
    void tellOfSession(const QString& signal) { m_logind.signal(sessionPath, sessionInterface, signal, {}); }

    FakeService m_logind{m_bus, QStringLiteral("org.freedesktop.login1")};
    LogindSession m_session{m_ours};
    std::unique_ptr<LockFact> m_fact;
};

/// A desktop's locker: its service, where it stands, and the interface by which it tells.
struct Locker {
    const char* name;
    const char* path;
};

class LockerOf : public LockFactTest, public testing::WithParamInterface<Locker> {
protected:
    [[nodiscard]] static QString name() { return QString::fromLatin1(GetParam().name); }
    [[nodiscard]] static QString path() { return QString::fromLatin1(GetParam().path); }
};

} // namespace

TEST_F(LockFactTest, session_isLocked_whileLogindHintsAtIt)
{
    setHint(true);
    EXPECT_TRUE(comesToHave(*m_fact, 1));
    EXPECT_EQ(m_fact->hindrances().value(0).kind, HindranceKind::Locked);
    setHint(false);
    EXPECT_TRUE(comesToHave(*m_fact, 0));
}

TEST_F(LockFactTest, session_isLocked_fromLogindsLockUntilItsUnlock)
{
    tellOfSession(QStringLiteral("Lock"));
    EXPECT_TRUE(comesToHave(*m_fact, 1));
    EXPECT_EQ(asked(*m_fact).size(), 1); // no locker has to hint at it
    tellOfSession(QStringLiteral("Unlock"));
    EXPECT_TRUE(comesToHave(*m_fact, 0));
}

TEST_F(LockFactTest, session_isNotLockedForEver_whenNobodyTellsOfTheUnlock)
{
    tellOfSession(QStringLiteral("Lock"));
    ASSERT_TRUE(comesToHave(*m_fact, 1));
    m_fact->personIsBack();
    EXPECT_TRUE(m_fact->hindrances().isEmpty());
}

TEST_F(LockFactTest, session_staysLocked_whenThePersonMovesBeforeALockThatIsHintedAt)
{
    setHint(true);
    ASSERT_TRUE(comesToHave(*m_fact, 1));
    m_fact->personIsBack();
    EXPECT_EQ(m_fact->hindrances().size(), 1);
}

TEST_F(LockFactTest, lockOfAnotherSession_isNone_whenLogindTellsOfIt)
{
    m_logind.signal(QStringLiteral("/org/freedesktop/login1/session/_39"), sessionInterface,
                    QStringLiteral("Lock"), {});
    EXPECT_TRUE(asked(*m_fact).isEmpty()); // what is answered comes after what was told
}

TEST_F(LockFactTest, session_isFoundByTheUser_whenNoneIsNamed)
{
    qunsetenv("XDG_SESSION_ID");
    m_logind.answer(QStringLiteral("GetSessionByPID"), {QVariant::fromValue(QDBusObjectPath(sessionPath))});
    m_logind.setValue(QStringLiteral("LockedHint"), true);
    LogindSession session{m_ours};
    LockFact fact(m_ours, m_ours, session);
    EXPECT_EQ(asked(fact).size(), 1);
    EXPECT_TRUE(m_logind.calls().contains(QStringLiteral("GetSessionByPID")));
}

TEST_F(LockFactTest, plasma_isLocked_fromWhenItIsAboutTo)
{
    FakeService plasma(m_bus, QStringLiteral("org.kde.screensaver"));
    plasma.signal(QStringLiteral("/ScreenSaver"), QStringLiteral("org.kde.screensaver"),
                  QStringLiteral("AboutToLock"), {});
    EXPECT_TRUE(comesToHave(*m_fact, 1));
}

TEST_F(LockFactTest, session_isNotLocked_whenLogindHangs)
{
    setHint(true);
    ASSERT_TRUE(comesToHave(*m_fact, 1));
    m_logind.hang();
    EXPECT_TRUE(asked(*m_fact).isEmpty());
}

TEST_F(LockFactTest, ourOwnSaver_isNoLock_whenItIsShown)
{
    int changes = 0;
    m_fact->setChangeHandler([&changes] { ++changes; });
    const QString name = QStringLiteral("org.freedesktop.ScreenSaver");
    ASSERT_TRUE(m_ours.registerService(name));
    auto told =
        QDBusMessage::createSignal(QStringLiteral("/ScreenSaver"), name, QStringLiteral("ActiveChanged"));
    told.setArguments({true});
    ASSERT_TRUE(m_ours.send(told));
    EXPECT_TRUE(asked(*m_fact).isEmpty()); // what is answered comes after what was told
    EXPECT_EQ(changes, 0);
}

TEST_P(LockerOf, session_isLocked_whileTheLockerIsInFront)
{
    FakeService locker(m_bus, name());
    const auto bring = [&locker](bool isInFront) {
        locker.answer(QStringLiteral("GetActive"), {isInFront});
        locker.signal(path(), name(), QStringLiteral("ActiveChanged"), {isInFront});
    };
    bring(true);
    EXPECT_TRUE(comesToHave(*m_fact, 1));
    bring(false);
    EXPECT_TRUE(comesToHave(*m_fact, 0));
}

TEST_P(LockerOf, session_isLocked_whenOnlyTheSignalTells)
{
    FakeService locker(m_bus, name());
    ASSERT_TRUE(asked(*m_fact).isEmpty());
    locker.hang();
    locker.signal(path(), name(), QStringLiteral("ActiveChanged"), {true});
    EXPECT_TRUE(comesToHave(*m_fact, 1));
}

TEST_P(LockerOf, session_isLocked_whenTheLockerSaysSoOnComing)
{
    FakeService locker(m_bus, name());
    locker.answer(path() + QStringLiteral(" GetActive"), {true});
    EXPECT_EQ(asked(*m_fact).size(), 1);
}

TEST_P(LockerOf, session_isNotLocked_whenTheLockerHasLeft)
{
    FakeService locker(m_bus, name());
    locker.answer(QStringLiteral("GetActive"), {true});
    ASSERT_EQ(asked(*m_fact).size(), 1);
    locker.leave();
    EXPECT_TRUE(comesToHave(*m_fact, 0));
}

TEST_P(LockerOf, session_isNotLocked_whenTheLockerHangs)
{
    FakeService locker(m_bus, name());
    locker.answer(QStringLiteral("GetActive"), {true});
    ASSERT_EQ(asked(*m_fact).size(), 1);
    locker.hang();
    EXPECT_TRUE(asked(*m_fact).isEmpty());
}

INSTANTIATE_TEST_SUITE_P(desktops, LockerOf,
                         testing::Values(Locker{"org.gnome.ScreenSaver", "/org/gnome/ScreenSaver"},
                                         Locker{"org.cinnamon.ScreenSaver", "/org/cinnamon/ScreenSaver"},
                                         Locker{"org.xfce.ScreenSaver", "/org/xfce/ScreenSaver"},
                                         Locker{"org.freedesktop.ScreenSaver", "/ScreenSaver"}));
