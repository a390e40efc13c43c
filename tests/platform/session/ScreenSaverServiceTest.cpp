#include "platform/session/ScreenSaverService.h"

#include "platform/base/Bounds.h"
#include "platform/base/Clock.h"
#include "platform/base/Random.h"
#include "platform/session/FactTest.h"
#include "platform/session/LogindSession.h"

#include <QDBusConnectionInterface>
#include <QDBusObjectPath>
#include <QDBusPendingCall>

using namespace kestro;

namespace {

const QString name = QStringLiteral("org.freedesktop.ScreenSaver");

class ScreenSaverServiceTest : public FactTest {
protected:
    void SetUp() override
    {
        qputenv("XDG_SESSION_ID", "7");
        m_service = std::make_unique<ScreenSaverService>(m_ours, m_session, m_random, m_clock);
        m_service->setChangeHandler([this] { ++m_changes; });
    }
    void TearDown() override
    {
        m_service.reset();
        qunsetenv("XDG_SESSION_ID");
    }

    [[nodiscard]] bool ownsTheName()
    {
        return waitUntil([this] { return m_service->isOwner(); });
    }
    /// What the service answers to a program on the bus.
    [[nodiscard]] static QDBusMessage call(const QDBusConnection& caller, const QString& method,
                                           const QVariantList& arguments = {},
                                           const QString& path = QStringLiteral("/ScreenSaver"))
    {
        auto message = QDBusMessage::createMethodCall(name, path, name, method);
        message.setArguments(arguments);
        const QDBusPendingCall pending = caller.asyncCall(message);
        if (!waitUntil([&pending] { return pending.isFinished(); })) ADD_FAILURE() << "no answer";
        return pending.reply();
    }
    [[nodiscard]] static QDBusMessage inhibit(const QDBusConnection& caller,
                                              const QString& who = QStringLiteral("Player"),
                                              const QString& why = QStringLiteral("plays"))
    {
        return call(caller, QStringLiteral("Inhibit"), {who, why});
    }
    [[nodiscard]] static uint cookieOf(const QDBusMessage& answer)
    {
        return answer.arguments().value(0).toUInt();
    }

    QDBusConnection m_player = m_bus.connect();
    FakeService m_logind{m_bus, QStringLiteral("org.freedesktop.login1")};
    LogindSession m_session{m_ours};
    SeededRandom m_random{1};
    ManualClock m_clock;
    std::unique_ptr<ScreenSaverService> m_service;
    int m_changes = 0;
};

const QList<Hindrance> playing = {
    {HindranceKind::Inhibited, QStringLiteral("Player"), QStringLiteral("plays")}};

} // namespace

TEST_F(ScreenSaverServiceTest, inhibit_isAReason_untilItIsGivenBack)
{
    ASSERT_TRUE(ownsTheName());
    const uint cookie = cookieOf(inhibit(m_player));
    EXPECT_NE(cookie, 0u);
    EXPECT_EQ(m_service->hindrances(), playing);
    EXPECT_EQ(m_changes, 1);

    const QDBusMessage answer = call(m_player, QStringLiteral("UnInhibit"), {cookie});
    EXPECT_EQ(answer.type(), QDBusMessage::ReplyMessage);
    EXPECT_TRUE(m_service->hindrances().isEmpty());
    EXPECT_EQ(m_changes, 2);
}

TEST_F(ScreenSaverServiceTest, inhibit_isHeard_atTheLongPathToo)
{
    ASSERT_TRUE(ownsTheName());
    const auto answer =
        call(m_player, QStringLiteral("Inhibit"), {QStringLiteral("Player"), QStringLiteral("plays")},
             QStringLiteral("/org/freedesktop/ScreenSaver"));
    EXPECT_NE(cookieOf(answer), 0u);
    EXPECT_EQ(m_service->hindrances(), playing);
}

TEST_F(ScreenSaverServiceTest, inhibit_ends_whenItsCallerLeavesTheBus)
{
    ASSERT_TRUE(ownsTheName());
    ASSERT_NE(cookieOf(inhibit(m_player)), 0u);
    ASSERT_NE(cookieOf(inhibit(m_player, QStringLiteral("Another"))), 0u);
    ASSERT_EQ(m_service->hindrances().size(), 2);

    PrivateBus::disconnect(m_player);
    m_player = m_ours; // the last one who holds it
    EXPECT_TRUE(waitUntil([this] { return m_service->hindrances().isEmpty(); }));
}

TEST_F(ScreenSaverServiceTest, inhibit_ends_whenItsCallerLeftBeforeItWasHeard)
{
    ASSERT_TRUE(ownsTheName());
    ASSERT_TRUE(m_service->inhibit(QStringLiteral(":1.99999"), QStringLiteral("Gone"), {}).has_value());
    ASSERT_EQ(m_service->hindrances().size(), 1);
    EXPECT_TRUE(waitUntil([this] { return m_service->hindrances().isEmpty(); }));
}

TEST_F(ScreenSaverServiceTest, unInhibit_isRefused_whenTheCookieIsAnothers)
{
    ASSERT_TRUE(ownsTheName());
    const uint cookie = cookieOf(inhibit(m_player));
    const QDBusConnection thief = m_bus.connect();
    EXPECT_EQ(call(thief, QStringLiteral("UnInhibit"), {cookie}).type(), QDBusMessage::ErrorMessage);
    EXPECT_EQ(m_service->hindrances(), playing);
}

TEST_F(ScreenSaverServiceTest, inhibit_isRefused_whenOneCallerHasTooMany)
{
    ASSERT_TRUE(ownsTheName());
    for (int i = 0; i < Bounds::inhibitorsOfOne; ++i)
        ASSERT_NE(cookieOf(inhibit(m_player)), 0u);
    EXPECT_EQ(inhibit(m_player).type(), QDBusMessage::ErrorMessage);
    const QDBusConnection other = m_bus.connect();
    EXPECT_NE(cookieOf(inhibit(other)), 0u);
}

TEST_F(ScreenSaverServiceTest, inhibit_hasItsWordsCut_whenTheyAreLongOrWild)
{
    ASSERT_TRUE(ownsTheName());
    const QString wild = QStringLiteral("a\nb\x1b[31m\u202e") + QString(100'000, u'x');
    ASSERT_NE(cookieOf(inhibit(m_player, wild, wild)), 0u);
    const Hindrance told = m_service->hindrances().value(0);
    EXPECT_LE(told.who.size(), Bounds::inhibitorCharacters);
    EXPECT_LE(told.why.size(), Bounds::inhibitorCharacters);
    EXPECT_TRUE(told.who.startsWith(QStringLiteral("a b [31m x"))) << qPrintable(told.who);
}

TEST_F(ScreenSaverServiceTest, name_isGivenUp_whenAnotherServiceTakesIt)
{
    ASSERT_TRUE(ownsTheName());
    ASSERT_NE(cookieOf(inhibit(m_player)), 0u);
    QDBusConnection desktop = m_bus.connect();
    const auto reply =
        desktop.interface()->registerService(name, QDBusConnectionInterface::ReplaceExistingService,
                                             QDBusConnectionInterface::DontAllowReplacement);
    ASSERT_EQ(reply.value(), QDBusConnectionInterface::ServiceRegistered);
    EXPECT_TRUE(waitUntil([this] { return !m_service->isOwner(); }));
    EXPECT_TRUE(m_service->hindrances().isEmpty()); // nobody could give it back to us
}

TEST_F(ScreenSaverServiceTest, name_isTakenBack_whenTheOtherServiceGoes)
{
    ASSERT_TRUE(ownsTheName());
    QDBusConnection desktop = m_bus.connect();
    ASSERT_TRUE(desktop.interface()->registerService(name, QDBusConnectionInterface::ReplaceExistingService,
                                                     QDBusConnectionInterface::DontAllowReplacement));
    ASSERT_TRUE(waitUntil([this] { return !m_service->isOwner(); }));
    desktop.interface()->unregisterService(name);
    EXPECT_TRUE(ownsTheName());
    EXPECT_NE(cookieOf(inhibit(m_player)), 0u);
}

TEST_F(ScreenSaverServiceTest, name_isGivenBack_whenTheServiceEnds)
{
    ASSERT_TRUE(ownsTheName());
    m_service.reset();
    EXPECT_TRUE(waitUntil([this] { return !m_player.interface()->isServiceRegistered(name).value(); }));
}

TEST_F(ScreenSaverServiceTest, getActive_answersWhatItWasTold_whenAsked)
{
    ASSERT_TRUE(ownsTheName());
    EXPECT_FALSE(call(m_player, QStringLiteral("GetActive")).arguments().value(0).toBool());
    m_service->setActive(true);
    m_clock.advance(90);
    EXPECT_TRUE(call(m_player, QStringLiteral("GetActive")).arguments().value(0).toBool());
    EXPECT_EQ(cookieOf(call(m_player, QStringLiteral("GetActiveTime"))), 90u);
}

TEST_F(ScreenSaverServiceTest, activeChanged_isSentAtBothPaths_whenTheSaverIsShown)
{
    ASSERT_TRUE(ownsTheName());
    QStringList heard;
    BusObject shortPath(m_player, {name, QStringLiteral("/ScreenSaver"), name});
    BusObject longPath(m_player, {name, QStringLiteral("/org/freedesktop/ScreenSaver"), name});
    for (BusObject* object : {&shortPath, &longPath})
        object->listen(QStringLiteral("ActiveChanged"),
                       [&heard](const QDBusMessage& told) { heard.append(told.path()); });
    ASSERT_FALSE(call(m_player, QStringLiteral("GetActive")).arguments().isEmpty()); // both listen by now
    m_service->setActive(true);
    EXPECT_TRUE(waitUntil([&heard] { return heard.size() == 2; }));
    EXPECT_NE(heard.value(0), heard.value(1));
}

TEST_F(ScreenSaverServiceTest, others_areHeard_whenTheyShowEndOrMove)
{
    ASSERT_TRUE(ownsTheName());
    QStringList heard;
    m_service->setHandlers(
        {[&heard](bool isShown) { heard.append(isShown ? QStringLiteral("show") : QStringLiteral("end")); },
         [&heard] { heard.append(QStringLiteral("activity")); }, [] { return 42.5; }});
    EXPECT_TRUE(call(m_player, QStringLiteral("SetActive"), {true}).arguments().value(0).toBool());
    EXPECT_TRUE(call(m_player, QStringLiteral("SetActive"), {false}).arguments().value(0).toBool());
    static_cast<void>(call(m_player, QStringLiteral("SimulateUserActivity")));
    EXPECT_EQ(heard.join(u' '), QStringLiteral("show end activity"));
    EXPECT_EQ(cookieOf(call(m_player, QStringLiteral("GetSessionIdleTime"))), 42u);
}

TEST_F(ScreenSaverServiceTest, lock_locksTheSessionAtLogind_whenCalled)
{
    ASSERT_TRUE(ownsTheName());
    m_logind.answer(QStringLiteral("GetSession"),
                    {QVariant::fromValue(QDBusObjectPath("/org/freedesktop/login1/session/_37"))});
    m_logind.answer(QStringLiteral("/org/freedesktop/login1/session/_37 Lock"), {});
    static_cast<void>(call(m_player, QStringLiteral("Lock")));
    EXPECT_TRUE(waitUntil([this] { return m_logind.calls().contains(QStringLiteral("Lock")); }));
}

TEST(screenSaverCookies, add_isRefused_whenAllTogetherHaveTooMany)
{
    SeededRandom random(1);
    ScreenSaverCookies cookies(random);
    for (int i = 0; i < Bounds::inhibitors; ++i)
        ASSERT_TRUE(cookies.add(QStringLiteral(":1.%1").arg(i), {}, {}).has_value());
    EXPECT_FALSE(cookies.add(QStringLiteral(":2.1"), {}, {}).has_value());
}
