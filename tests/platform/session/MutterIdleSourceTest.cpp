#include "platform/session/MutterIdleSource.h"

#include "platform/session/FakeIdleMonitor.h"
#include "platform/session/PrivateBus.h"
#include "platform/session/Told.h"
#include "support/WaitUntil.h"

#include <QDBusPendingCall>

#include <gtest/gtest.h>
#include <memory>

namespace kestro {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds span(300000);

class MutterIdleSourceTest : public testing::Test {
protected:
    /// Watches, and comes back when the service knows.
    void watch(milliseconds length = span)
    {
        const int before = m_fake->count(QStringLiteral("AddIdleWatch"));
        m_source->watch(length, m_told.handlers());
        ASSERT_TRUE(waitUntil([&] { return m_fake->count(QStringLiteral("AddIdleWatch")) > before; }));
        settle();
    }
    /// The answers to all that was asked so far have come.
    void settle()
    {
        auto ping = QDBusMessage::createMethodCall(m_address.service, m_address.path, m_address.interface,
                                                   QStringLiteral("GetIdletime"));
        QDBusPendingCall call = m_client.asyncCall(ping);
        EXPECT_TRUE(waitUntil([&] { return call.isFinished(); }));
        QCoreApplication::processEvents();
    }
    void restart()
    {
        m_fake.reset();
        m_fake = std::make_unique<FakeIdleMonitor>(m_bus, m_address, 100);
    }
    [[nodiscard]] bool hears(const QStringList& words)
    {
        return waitUntil([&] { return m_told.words.size() >= words.size(); }) && m_told.words == words;
    }
    void goAway()
    {
        m_fake->stayAway();
        EXPECT_TRUE(waitUntil([&] { return m_fake->activeWatches() == 1; }));
        settle();
    }

    PrivateBus m_bus;
    BusAddress m_address = MutterIdleSource::mutter();
    std::unique_ptr<FakeIdleMonitor> m_fake = std::make_unique<FakeIdleMonitor>(m_bus, m_address);
    QDBusConnection m_client = m_bus.connect();
    std::unique_ptr<MutterIdleSource> m_source = std::make_unique<MutterIdleSource>(m_client, m_address);
    Told m_told;
};

const QStringList idle{QStringLiteral("idle")};
const QStringList idleActive{QStringLiteral("idle"), QStringLiteral("active")};
const QStringList lost{QStringLiteral("lost")};

} // namespace

TEST_F(MutterIdleSourceTest, watch_asksForTheSpan_whenCalled)
{
    watch();
    EXPECT_EQ(m_fake->idleSpans(), QList<qulonglong>{300000});
}

TEST_F(MutterIdleSourceTest, source_tellsIdle_whenTheWatchFires)
{
    watch();
    m_fake->stayAway();
    EXPECT_TRUE(hears(idle));
}

TEST_F(MutterIdleSourceTest, source_tellsActive_whenThePersonIsBack)
{
    watch();
    goAway();
    m_fake->act();
    EXPECT_TRUE(hears(idleActive));
}

TEST_F(MutterIdleSourceTest, source_tellsActive_whenInputCameBeforeItCouldBeWatched)
{
    watch();
    m_fake->stayAway();
    m_fake->pass(3);
    EXPECT_TRUE(hears(idleActive));
    EXPECT_TRUE(waitUntil([this] { return m_fake->activeWatches() == 0; })); // and leaves none behind
}

TEST_F(MutterIdleSourceTest, source_tellsIdleAgain_whenThePersonGoesAgain)
{
    watch();
    goAway();
    m_fake->act();
    ASSERT_TRUE(hears(idleActive));
    m_fake->stayAway();
    EXPECT_TRUE(hears(idleActive + idle));
}

TEST_F(MutterIdleSourceTest, watch_replacesTheSpan_whenCalledAgain)
{
    watch();
    watch(milliseconds(7));
    EXPECT_TRUE(waitUntil([this] { return m_fake->idleSpans() == QList<qulonglong>{7}; }));
}

TEST_F(MutterIdleSourceTest, source_removesItsWatches_whenDestroyed)
{
    watch();
    goAway();
    m_source.reset();
    EXPECT_TRUE(waitUntil([this] { return m_fake->idleSpans().isEmpty() && m_fake->activeWatches() == 0; }));
}

TEST_F(MutterIdleSourceTest, source_watchesAnew_whenTheServiceRestarts)
{
    watch();
    restart();
    ASSERT_TRUE(waitUntil([this] { return !m_fake->idleSpans().isEmpty(); }));
    settle();
    m_fake->stayAway();
    EXPECT_TRUE(hears(idle));
}

TEST_F(MutterIdleSourceTest, source_tellsActive_whenTheServiceRestartsAndThePersonIsThere)
{
    watch();
    goAway();
    restart();
    EXPECT_TRUE(hears(idleActive));
}

TEST_F(MutterIdleSourceTest, source_tellsActiveLater_whenTheServiceRestartsAndThePersonIsAway)
{
    watch();
    goAway();
    m_fake.reset();
    m_fake = std::make_unique<FakeIdleMonitor>(m_bus, m_address, 100);
    m_fake->pass(400000);
    ASSERT_TRUE(waitUntil([this] { return m_fake->activeWatches() == 1; }));
    settle();
    ASSERT_EQ(m_told.words, idle);
    m_fake->act();
    EXPECT_TRUE(hears(idleActive));
}

TEST_F(MutterIdleSourceTest, source_tellsIdleOnce_whenTheServiceRestartsAndTellsItAgain)
{
    watch();
    goAway();
    restart();
    m_fake->pass(400000);
    ASSERT_TRUE(waitUntil([this] { return !m_fake->idleSpans().isEmpty(); }));
    settle();
    goAway();
    EXPECT_EQ(m_told.words, idle);
}

TEST_F(MutterIdleSourceTest, source_isLost_whenTheServiceDoesNotAnswer)
{
    m_fake->hang();
    m_source->watch(span, m_told.handlers());
    EXPECT_TRUE(hears(lost));
}

TEST_F(MutterIdleSourceTest, source_isLost_whenTheServiceStaysAway)
{
    m_source = std::make_unique<MutterIdleSource>(m_client, m_address, milliseconds(20));
    watch();
    m_fake.reset();
    EXPECT_TRUE(hears(lost));
}

TEST_F(MutterIdleSourceTest, source_isLost_whenThereIsNoService)
{
    MutterIdleSource source(m_client, MutterIdleSource::muffin());
    source.watch(span, m_told.handlers());
    EXPECT_TRUE(hears(lost));
}

TEST_F(MutterIdleSourceTest, source_mayBeDestroyed_whenItTells)
{
    auto handlers = m_told.handlers();
    handlers.onIdle = [this] { m_source.reset(); };
    m_source->watch(span, handlers);
    ASSERT_TRUE(waitUntil([this] { return !m_fake->idleSpans().isEmpty(); }));
    settle();
    m_fake->stayAway();
    EXPECT_TRUE(waitUntil([this] { return !m_source; }));
}

TEST_F(MutterIdleSourceTest, source_knowsCinnamonsService_byItsOwnName)
{
    const FakeIdleMonitor fake(m_bus, MutterIdleSource::muffin());
    MutterIdleSource source(m_client, MutterIdleSource::muffin());
    source.watch(span, m_told.handlers());
    EXPECT_TRUE(waitUntil([&] { return !fake.idleSpans().isEmpty(); }));
    EXPECT_EQ(source.name(), QStringLiteral("org.cinnamon.Muffin.IdleMonitor"));
}

} // namespace kestro
