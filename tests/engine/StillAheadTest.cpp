#include "engine/StillAhead.h"

#include "engine/CaptureThread.h"
#include "engine/HeldStills.h"
#include "platform/base/Clock.h"
#include "platform/base/Log.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace kestro {

namespace {

class StillAheadTest : public testing::Test {
protected:
    void settle()
    {
        while (captures.isBusy())
            std::this_thread::yield();
    }
    void askAndSettle(double seconds)
    {
        ahead.ask(at(seconds));
        settle();
    }
    [[nodiscard]] StillAhead::Moment at(double seconds) const { return {copy, seconds, 60}; }
    long logged() { return std::count(log.begin(), log.end(), "movie doesn't have a image."); }

    std::vector<QString> log;
    LogCapture logCapture{[this](const QString& line) { log.push_back(line); }};
    HeldStills stills;
    std::shared_ptr<StillMovie> copy = std::make_shared<HeldStillMovie>(stills);
    ManualClock clock;
    CaptureThread captures;
    StillAhead ahead{captures, clock};
};

} // namespace

TEST_F(StillAheadTest, take_handsOverTheStillThatWasAskedFor_once)
{
    askAndSettle(4.05);
    EXPECT_EQ(stills.asked(), (std::vector<MovieTime>{{2430, 600}}));
    EXPECT_FALSE(ahead.take(at(4.05)).isNull());
    EXPECT_TRUE(ahead.take(at(4.05)).isNull());
    EXPECT_EQ(logged(), 0);
}

TEST_F(StillAheadTest, take_hasNothing_andLogsNothing_whenNothingWasAskedFor)
{
    EXPECT_TRUE(ahead.take(at(4)).isNull());
    EXPECT_TRUE(ahead.take({}).isNull());
    ahead.ask({});
    EXPECT_FALSE(captures.isBusy());
    EXPECT_TRUE(ahead.take({}).isNull());
    EXPECT_EQ(logged(), 0);
}

TEST_F(StillAheadTest, take_refusesAStillThatIsAQuarterSecondOff)
{
    askAndSettle(4);
    EXPECT_FALSE(ahead.take(at(4.24)).isNull());
    askAndSettle(4);
    EXPECT_TRUE(ahead.take(at(4.26)).isNull());
    askAndSettle(4);
    EXPECT_TRUE(ahead.take(at(3.74)).isNull());
}

TEST_F(StillAheadTest, take_knowsThatALoopGoesOnAtItsBeginning)
{
    askAndSettle(59.9);
    EXPECT_FALSE(ahead.take(at(0.1)).isNull());
}

TEST_F(StillAheadTest, take_refusesAStillOfAnotherMovie)
{
    askAndSettle(4);
    EXPECT_TRUE(ahead.take({std::make_shared<HeldStillMovie>(stills), 4, 60}).isNull());
}

TEST_F(StillAheadTest, take_doesNotWait_andDropsWhatComesLate)
{
    stills.hold();
    ahead.ask(at(4));
    EXPECT_TRUE(ahead.take(at(4)).isNull());
    EXPECT_EQ(logged(), 1);
    stills.letGo();
    settle();
    EXPECT_TRUE(ahead.take(at(8)).isNull());
    EXPECT_EQ(logged(), 1);
}

TEST_F(StillAheadTest, ask_asksOnce_andAnewWhenThePictureIsAnother)
{
    askAndSettle(4);
    askAndSettle(4);
    askAndSettle(4.05);
    EXPECT_EQ(stills.asked().size(), 1U);
    askAndSettle(4.2);
    EXPECT_EQ(stills.asked().size(), 2U);
}

TEST_F(StillAheadTest, take_makesDoWithTheStillBefore_whenTheNewerOneIsLate)
{
    askAndSettle(4);
    stills.hold();
    ahead.ask(at(4.2));
    EXPECT_FALSE(ahead.take(at(4.2)).isNull());
    EXPECT_EQ(logged(), 0);
    stills.letGo();
    settle();
}

TEST_F(StillAheadTest, ask_waitsItsTurn_whileAnotherStillIsBeingTaken)
{
    stills.hold();
    EXPECT_TRUE(captures.start({copy, 0}, [](const Picture&) {}));
    ahead.ask(at(4));
    stills.letGo();
    settle();
    EXPECT_EQ(stills.asked().size(), 1U);
    EXPECT_TRUE(ahead.take(at(4)).isNull());
    askAndSettle(4);
    EXPECT_FALSE(ahead.take(at(4)).isNull());
}

TEST_F(StillAheadTest, ask_asksAnew_afterAStillWasGivenUp)
{
    stills.hold();
    ahead.ask(at(4));
    captures.cancel();
    stills.letGo();
    askAndSettle(4);
    EXPECT_EQ(stills.asked().size(), 2U);
    EXPECT_FALSE(ahead.take(at(4)).isNull());
}

TEST_F(StillAheadTest, lead_isASecond_andLongerWhereTheLastStillTookLong)
{
    EXPECT_EQ(ahead.lead(), 1);
    askAndSettle(4);
    EXPECT_FALSE(ahead.take(at(4)).isNull());
    EXPECT_EQ(ahead.lead(), 1);
    stills.hold();
    ahead.ask(at(8));
    clock.advance(2);
    EXPECT_TRUE(ahead.take(at(8)).isNull());
    EXPECT_GE(ahead.lead(), 3);
    clock.advance(1);
    stills.letGo();
    settle();
    EXPECT_GE(ahead.lead(), 4.5);
    EXPECT_LE(ahead.lead(), 10);
    askAndSettle(12);
    EXPECT_FALSE(ahead.take(at(12)).isNull());
    EXPECT_EQ(ahead.lead(), 1);
}

} // namespace kestro
