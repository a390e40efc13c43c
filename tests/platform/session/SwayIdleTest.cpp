#include "platform/session/SwaySession.h"
#include "platform/session/Told.h"
#include "platform/session/WaylandIdleSource.h"
#include "support/WaitUntil.h"

#include <gtest/gtest.h>

namespace kestro {

namespace {

constexpr std::chrono::milliseconds span(50);

/// A real compositor, with the protocol of its release, whose person is a tool.
class SwayIdleTest : public testing::Test {
protected:
    void SetUp() override
    {
        auto connection = WaylandConnection::open(m_sway.display());
        ASSERT_NE(connection, nullptr);
        m_source = WaylandIdleSource::create(std::move(connection));
        ASSERT_NE(m_source, nullptr);
    }
    [[nodiscard]] bool hears(const QStringList& words)
    {
        return waitUntil([&] { return m_told.words.size() >= words.size(); }) &&
               m_told.words.first(words.size()) == words;
    }

    SwaySession m_sway;
    std::unique_ptr<WaylandIdleSource> m_source;
    Told m_told;
};

const QStringList idle{QStringLiteral("idle")};
const QStringList idleActive{QStringLiteral("idle"), QStringLiteral("active")};

} // namespace

TEST_F(SwayIdleTest, source_speaksTheNewestProtocol_thatTheCompositorHas)
{
    EXPECT_EQ(m_source->name(), m_sway.idleProtocol());
}

TEST_F(SwayIdleTest, source_tellsActive_whenAKeyIsPressed)
{
    m_source->watch(span, m_told.handlers());
    ASSERT_TRUE(hears(idle));
    EXPECT_TRUE(m_sway.press());
    EXPECT_TRUE(hears(idleActive));
}

TEST_F(SwayIdleTest, source_tellsIdleAgain_whenThePersonGoesAgain)
{
    m_source->watch(span, m_told.handlers());
    ASSERT_TRUE(hears(idle));
    EXPECT_TRUE(m_sway.press());
    EXPECT_TRUE(hears(idleActive + idle));
}

TEST_F(SwayIdleTest, source_isLost_whenTheCompositorCrashes)
{
    m_source->watch(forGood, m_told.handlers());
    m_sway.kill();
    EXPECT_TRUE(hears({QStringLiteral("lost")}));
}

} // namespace kestro
