#include "trailers/panel/ReloadPacer.h"

#include "platform/base/Clock.h"
#include "platform/base/Random.h"
#include "platform/display/desktop/ManualTimerSource.h"

#include <gtest/gtest.h>

namespace kestro {

/// A reload that takes as long as the test says.
class ReloadPacerTest : public testing::Test {
protected:
    void reload()
    {
        ++reloads;
        clock.advance(takes);
    }

    int reloads = 0;
    double takes = 0;
    ManualClock clock;
    ManualTimerSource timers{clock};
    SeededRandom random{1};
    ReloadPacer pacer{{timers, clock, random}, [this] { reload(); }};
};

TEST_F(ReloadPacerTest, request_reloadsAtOnce_whenReloadsAreShort)
{
    takes = 0.02;
    for (int time = 0; time < 5; ++time)
        pacer.request();
    EXPECT_EQ(reloads, 5);
}

TEST_F(ReloadPacerTest, request_waitsFourTimesAsLong_whenTheLastReloadWasLong)
{
    takes = 0.5;
    pacer.request();
    EXPECT_EQ(reloads, 1);
    pacer.request();
    pacer.request();
    timers.advance(1.9);
    EXPECT_EQ(reloads, 1);
    timers.advance(0.2);
    EXPECT_EQ(reloads, 2);
}

TEST_F(ReloadPacerTest, pause_endsWithoutAReload_whenNoneWasAskedFor)
{
    takes = 0.5;
    pacer.request();
    timers.advance(10);
    EXPECT_EQ(reloads, 1);
    pacer.request();
    EXPECT_EQ(reloads, 2);
}

TEST_F(ReloadPacerTest, finish_makesTheReloadThatWaits)
{
    takes = 0.5;
    pacer.request();
    pacer.finish();
    EXPECT_EQ(reloads, 1);
    pacer.request();
    EXPECT_EQ(reloads, 2);
    pacer.request();
    pacer.finish();
    EXPECT_EQ(reloads, 3);
}

} // namespace kestro
