#include "platform/session/WaylandIdleSource.h"

#include "platform/session/FakeCompositor.h"
#include "platform/session/Told.h"
#include "support/WaitUntil.h"

#include <future>
#include <gtest/gtest.h>
#include <optional>

namespace kestro {

namespace {

using Kind = FakeCompositor::Kind;
using std::chrono::milliseconds;

constexpr milliseconds span(300000);

/// A source at a compositor that the test plays.
class WaylandIdleSourceTest : public testing::Test {
protected:
    /// Begins to watch; comes back when the compositor knows.
    void watch(int version, int seats = 1)
    {
        m_compositor.emplace(version, seats);
        auto opening = std::async(std::launch::async, [display = m_compositor->display()] {
            return WaylandConnection::open(display);
        });
        ASSERT_TRUE(
            waitUntil([&] { return opening.wait_for(milliseconds(0)) == std::future_status::ready; }));
        m_source = WaylandIdleSource::create(opening.get());
        ASSERT_NE(m_source, nullptr);
        m_source->watch(span, m_told.handlers());
        ASSERT_TRUE(comesToKnow(seats * version));
    }
    /// So many notices were asked for since the beginning.
    [[nodiscard]] bool comesToKnow(int notices)
    {
        return waitUntil([&] { return m_compositor->asked() == notices; });
    }
    [[nodiscard]] bool hears(const QStringList& words)
    {
        return waitUntil([&] { return m_told.words.size() >= words.size(); }) && m_told.words == words;
    }

    std::optional<FakeCompositor> m_compositor;
    std::unique_ptr<WaylandIdleSource> m_source;
    Told m_told;
};

const QStringList idle{QStringLiteral("idle")};
const QStringList idleActive{QStringLiteral("idle"), QStringLiteral("active")};

} // namespace

TEST_F(WaylandIdleSourceTest, watch_asksForTheSpan_whenCalled)
{
    watch(1);
    EXPECT_EQ(m_compositor->spans(Kind::Everything), QList<std::uint32_t>{300000});
    EXPECT_EQ(m_source->name(), QStringLiteral("ext-idle-notify-v1"));
}

TEST_F(WaylandIdleSourceTest, watch_asksForInputAloneToo_whenTheCompositorCanTell)
{
    watch(2);
    EXPECT_EQ(m_compositor->spans(Kind::Everything), QList<std::uint32_t>{300000});
    EXPECT_EQ(m_compositor->spans(Kind::InputAlone), QList<std::uint32_t>{300000});
}

TEST_F(WaylandIdleSourceTest, source_tellsIdleAndActive_whenTheCompositorDoes)
{
    watch(1);
    m_compositor->tellIdled(Kind::Everything);
    ASSERT_TRUE(hears(idle));
    m_compositor->tellResumed(Kind::Everything);
    EXPECT_TRUE(hears(idleActive));
}

TEST_F(WaylandIdleSourceTest, source_isNotIdle_whenOnlyInputIsMissing)
{
    watch(2);
    m_compositor->tellIdled(Kind::InputAlone);
    m_compositor->tellResumed(Kind::InputAlone);
    m_compositor->tellIdled(Kind::Everything);
    EXPECT_TRUE(hears(idle)); // by the second alone
}

TEST_F(WaylandIdleSourceTest, source_tellsActive_whenOnlyInputAloneIsTold)
{
    watch(2);
    m_compositor->tellIdled(Kind::Everything);
    m_compositor->tellIdled(Kind::InputAlone);
    ASSERT_TRUE(hears(idle));
    m_compositor->tellResumed(Kind::InputAlone);
    EXPECT_TRUE(hears(idleActive));
}

TEST_F(WaylandIdleSourceTest, source_tellsIdleAgain_whenTheCompositorHadNotToldOfTheInput)
{
    watch(2);
    m_compositor->tellIdled(Kind::Everything);
    m_compositor->tellIdled(Kind::InputAlone);
    ASSERT_TRUE(hears(idle));
    m_compositor->tellResumed(Kind::InputAlone);
    ASSERT_TRUE(hears(idleActive));
    ASSERT_TRUE(comesToKnow(4)); // asked anew: the first one still counts as idle
    m_compositor->tellIdled(Kind::Everything);
    EXPECT_TRUE(hears(idleActive + idle));
}

TEST_F(WaylandIdleSourceTest, watch_replacesTheSpan_whenCalledAgain)
{
    watch(2);
    m_source->watch(milliseconds(7), m_told.handlers());
    ASSERT_TRUE(comesToKnow(4));
    EXPECT_EQ(m_compositor->spans(Kind::Everything), QList<std::uint32_t>{7});
    EXPECT_EQ(m_compositor->spans(Kind::InputAlone), QList<std::uint32_t>{7});
}

TEST_F(WaylandIdleSourceTest, source_tellsIdle_whenAllSeatsAreIdle)
{
    watch(1, 2);
    m_compositor->tellIdled(Kind::Everything, 0);
    m_compositor->tellResumed(Kind::Everything, 0);
    m_compositor->tellIdled(Kind::Everything, 1);
    m_compositor->tellIdled(Kind::Everything, 0);
    ASSERT_TRUE(hears(idle));
    m_compositor->tellResumed(Kind::Everything, 1);
    EXPECT_TRUE(hears(idleActive));
}

TEST_F(WaylandIdleSourceTest, source_waitsForBothSeats_whenOneIsIdle)
{
    watch(1, 2);
    m_compositor->tellIdled(Kind::Everything, 0);
    m_compositor->addSeat(); // what comes after it has been heard
    ASSERT_TRUE(comesToKnow(3));
    EXPECT_EQ(m_told.words, QStringList());
}

TEST_F(WaylandIdleSourceTest, source_countsASeat_whenItComesLater)
{
    watch(1);
    m_compositor->addSeat();
    ASSERT_TRUE(comesToKnow(2));
    m_compositor->tellIdled(Kind::Everything, 0);
    m_compositor->tellIdled(Kind::Everything, 1);
    ASSERT_TRUE(hears(idle));
    m_compositor->tellResumed(Kind::Everything, 1);
    EXPECT_TRUE(hears(idleActive));
}

TEST_F(WaylandIdleSourceTest, source_countsASeatNoMore_whenItIsGone)
{
    watch(1, 2);
    m_compositor->tellIdled(Kind::Everything, 0);
    m_compositor->removeLastSeat();
    EXPECT_TRUE(hears(idle));
}

TEST_F(WaylandIdleSourceTest, source_isNotIdle_whenTheLastSeatIsGone)
{
    watch(1);
    m_compositor->removeLastSeat();
    ASSERT_TRUE(waitUntil([this] { return m_compositor->spans(Kind::Everything).isEmpty(); }));
    m_compositor->addSeat(); // what comes before it has been heard
    ASSERT_TRUE(comesToKnow(2));
    EXPECT_EQ(m_told.words, QStringList());
}

TEST_F(WaylandIdleSourceTest, watch_forgetsWhatWasTold_whenCalledAgain)
{
    watch(1, 2);
    m_compositor->tellIdled(Kind::Everything, 0);
    m_compositor->tellIdled(Kind::Everything, 1);
    ASSERT_TRUE(hears(idle));
    m_source->watch(milliseconds(7), m_told.handlers());
    ASSERT_TRUE(comesToKnow(4));
    m_compositor->removeLastSeat(); // has the source look at those that are left
    ASSERT_TRUE(waitUntil([this] { return m_compositor->spans(Kind::Everything).size() == 1; }));
    m_compositor->addSeat();
    ASSERT_TRUE(comesToKnow(5));
    EXPECT_EQ(m_told.words, idle);
}

TEST_F(WaylandIdleSourceTest, source_isLost_whenTheCompositorGoes)
{
    watch(1);
    m_compositor.reset();
    EXPECT_TRUE(hears({QStringLiteral("lost")}));
}

TEST_F(WaylandIdleSourceTest, source_mayBeDestroyed_whenItTells)
{
    watch(1);
    auto handlers = m_told.handlers();
    handlers.onIdle = [this] { m_source.reset(); };
    m_source->watch(span, handlers);
    ASSERT_TRUE(comesToKnow(2));
    m_compositor->tellIdled(Kind::Everything);
    EXPECT_TRUE(waitUntil([this] { return !m_source; }));
    EXPECT_TRUE(waitUntil([this] { return m_compositor->spans(Kind::Everything).isEmpty(); }));
}

} // namespace kestro
