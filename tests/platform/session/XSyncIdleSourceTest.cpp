#include "platform/session/XSyncIdleSource.h"

#include "platform/display/XvfbServer.h"
#include "platform/session/Told.h"
#include "support/WaitUntil.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <gtest/gtest.h>
#include <memory>
#include <optional>

namespace kestro {

namespace {

using std::chrono::milliseconds;

/// Short enough to be waited for, long enough for a tool to act in.
constexpr milliseconds span(50);

/// A real X server whose person is a tool.
class XSyncIdleSourceTest : public testing::Test {
protected:
    void SetUp() override
    {
        auto counter = XSyncIdleSource::open(display());
        ASSERT_TRUE(counter);
        m_source = std::make_unique<XSyncIdleSource>(std::move(*counter));
    }
    [[nodiscard]] QByteArray display() const
    {
        return m_server->environment().value(QStringLiteral("DISPLAY")).toUtf8();
    }
    void act(const QStringList& what) { EXPECT_TRUE(m_server->run(QStringLiteral("xdotool"), what)); }
    void press() { act({QStringLiteral("key"), QStringLiteral("a")}); }
    /// Asks the counter again and again until it has come so far; the event loop stands still meanwhile.
    [[nodiscard]] bool reaches(milliseconds idle) const
    {
        const auto counter = XSyncIdleSource::open(display());
        const QDeadlineTimer bound(std::chrono::minutes(3));
        while (counter && !bound.hasExpired()) {
            auto* const server = counter->connection.get();
            const auto told = xReply(
                xcb_sync_query_counter_reply(server, xcb_sync_query_counter(server, counter->id), nullptr));
            if (!told) return false;
            if (told->counter_value.lo > std::uint32_t(idle.count())) return true;
        }
        return false;
    }
    [[nodiscard]] bool hears(const QStringList& words)
    {
        return waitUntil([&] { return m_told.words.size() >= words.size(); }) &&
               m_told.words.first(words.size()) == words;
    }

    std::optional<XvfbServer> m_server{std::in_place, QStringLiteral("64x64x24")};
    std::unique_ptr<XSyncIdleSource> m_source;
    Told m_told;
};

const QStringList idle{QStringLiteral("idle")};
const QStringList idleActive{QStringLiteral("idle"), QStringLiteral("active")};

} // namespace

TEST_F(XSyncIdleSourceTest, source_tellsIdle_whenThereIsNoInput)
{
    m_source->watch(span, m_told.handlers());
    EXPECT_TRUE(hears(idle));
}

TEST_F(XSyncIdleSourceTest, source_tellsActive_whenAKeyIsPressed)
{
    m_source->watch(span, m_told.handlers());
    ASSERT_TRUE(hears(idle));
    press();
    EXPECT_TRUE(hears(idleActive));
}

TEST_F(XSyncIdleSourceTest, source_tellsActive_whenThePointerMoves)
{
    m_source->watch(span, m_told.handlers());
    ASSERT_TRUE(hears(idle));
    act({QStringLiteral("mousemove_relative"), QStringLiteral("3"), QStringLiteral("3")});
    EXPECT_TRUE(hears(idleActive));
}

TEST_F(XSyncIdleSourceTest, source_tellsIdleAgain_whenThePersonGoesAgain)
{
    m_source->watch(span, m_told.handlers());
    ASSERT_TRUE(hears(idle));
    press();
    ASSERT_TRUE(hears(idleActive + idle));
    press();
    EXPECT_TRUE(hears(idleActive + idleActive));
}

TEST_F(XSyncIdleSourceTest, watch_tellsAtOnce_whenThePersonHasBeenAwayForLonger)
{
    m_source->watch(milliseconds(200), m_told.handlers());
    ASSERT_TRUE(hears(idle));
    Told later;
    m_source->watch(milliseconds(150), later.handlers()); // the counter does not cross that any more
    EXPECT_TRUE(waitUntil([&] { return later.isLast("idle"); }));
}

TEST_F(XSyncIdleSourceTest, source_tellsActive_whenInputCameBeforeItHeardOfIdle)
{
    constexpr milliseconds longer(400);
    m_source->watch(longer, m_told.handlers());
    ASSERT_TRUE(reaches(longer)); // the server has told; nobody has read it yet
    press();
    EXPECT_TRUE(hears(idleActive));
}

TEST_F(XSyncIdleSourceTest, watch_looksAtTheCounterAnew_whenTheServersValueIsOld)
{
    m_source->watch(span, m_told.handlers());
    ASSERT_TRUE(hears(idle)); // the server has noted that value
    m_source.reset();
    press();
    auto counter = XSyncIdleSource::open(display());
    ASSERT_TRUE(counter);
    XSyncIdleSource fresh(std::move(*counter));
    Told told;
    fresh.watch(span, told.handlers());
    ASSERT_TRUE(waitUntil([&] { return !told.words.isEmpty(); }));
    act({QStringLiteral("getmouselocation")}); // the server would have taken it back by now
    QCoreApplication::processEvents();
    EXPECT_EQ(told.words, idle);
}

TEST_F(XSyncIdleSourceTest, source_isLost_whenTheServerGoes)
{
    m_source->watch(forGood, m_told.handlers());
    m_server.reset();
    EXPECT_TRUE(hears({QStringLiteral("lost")}));
}

TEST_F(XSyncIdleSourceTest, source_isLostOnce_howeverLongTheServerIsGone)
{
    m_source->watch(forGood, m_told.handlers());
    m_server.reset();
    ASSERT_TRUE(hears({QStringLiteral("lost")}));
    QCoreApplication::processEvents(); // what is closed could be read again and again
    EXPECT_EQ(m_told.words.size(), 1);
}

TEST_F(XSyncIdleSourceTest, source_mayBeDestroyed_whenItTells)
{
    auto handlers = m_told.handlers();
    handlers.onIdle = [this] { m_source.reset(); };
    m_source->watch(span, handlers);
    EXPECT_TRUE(waitUntil([this] { return !m_source; }));
}

TEST_F(XSyncIdleSourceTest, source_mayBeDestroyed_whenItIsLost)
{
    auto handlers = m_told.handlers();
    handlers.onLost = [this] { m_source.reset(); };
    m_source->watch(forGood, handlers);
    m_server.reset();
    EXPECT_TRUE(waitUntil([this] { return !m_source; }));
}

TEST(XSyncIdleSource, open_answersNothing_whenThereIsNoServer)
{
    EXPECT_FALSE(XSyncIdleSource::open(":64999"));
}

} // namespace kestro
