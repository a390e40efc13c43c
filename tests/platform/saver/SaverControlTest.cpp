#include "platform/saver/SaverControl.h"

#include "platform/base/Clock.h"
#include "platform/base/Random.h"
#include "platform/display/desktop/ImageDesktop.h"
#include "platform/display/desktop/ManualTimerSource.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/view/Window.h"
#include "platform/saver/ScreenSaverView.h"

#include <gtest/gtest.h>

namespace kestro {

namespace {

constexpr Rect all{{0, 0}, {64, 48}};

class ControlledSaver final : public ScreenSaverView, public SaverControl {
public:
    ControlledSaver()
        : ScreenSaverView(all, false)
    {
    }
};

/// A view that a host runs on a screen, and one in a window above it.
class SaverControlTest : public testing::Test {
protected:
    [[nodiscard]] SaverControl* controlOf(ScreenSaverView& view, ScreenSaverView& viewAbove)
    {
        Window hosted({all, &screen, QStringLiteral("host")});
        Window above({all, &screen, QStringLiteral("saver")});
        hosted.setContentView(&view);
        above.setContentView(&viewAbove);
        hosted.orderFront();
        above.orderFront();
        SaverControl* const found = SaverControl::of(view, screen);
        hosted.setContentView(nullptr);
        above.setContentView(nullptr);
        return found;
    }

    ManualClock clock;
    ManualTimerSource timers{clock};
    SeededRandom random{1};
    ImageDesktop desktop{{all}, 1, timers, clock, random};
    Screen& screen{*desktop.screens().front()};
    ScreenSaverView plain{all, false};
    ScreenSaverView otherPlain{all, false};
    ControlledSaver controlled;
    ControlledSaver otherControlled;
};

} // namespace

TEST_F(SaverControlTest, control_isTheViewsOwn)
{
    EXPECT_EQ(controlOf(controlled, otherControlled), &controlled);
}

TEST_F(SaverControlTest, control_isThatOfTheViewAbove_whenTheHostRunsOneBehind)
{
    EXPECT_EQ(controlOf(plain, controlled), &controlled);
}

TEST_F(SaverControlTest, control_isNone_whenNoViewHasOne)
{
    EXPECT_EQ(controlOf(plain, otherPlain), nullptr);
}

TEST_F(SaverControlTest, control_givesNothing_unlessItsSaverSaysSo)
{
    controlled.rest(Rest::Off);
    EXPECT_EQ(controlled.options(), nullptr);
    const SaverSnapshot shown = controlled.snapshot();
    EXPECT_FALSE(shown.movie || shown.sign || shown.isFading);
    EXPECT_EQ(shown.curIdx, -1);
    EXPECT_EQ(shown.trail, 0);
}

} // namespace kestro
