#include "host/FakeDesk.h"
#include "platform/display/desktop/Notifications.h"

#include <gtest/gtest.h>

namespace kestro {

namespace {

/// One that offers its host nothing besides.
class FakePlainSaver final : public ScreenSaverView {
public:
    explicit FakePlainSaver(const Rect& viewFrame)
        : ScreenSaverView(viewFrame, false)
    {
        setAnimationTimeInterval(0.1);
    }
    void animateOneFrame() override { ++ticks; }

    int ticks = 0;
};

class HostedSaverTest : public testing::Test {
protected:
    std::shared_ptr<HostedSaver> make()
    {
        view =
            std::make_shared<FakeSaver>(Rect{{0, 0}, FakeDesk::left.size}, QStringLiteral("a"), desk.journal);
        return std::make_shared<HostedSaver>(desk.screen(0), view, [this](HostedSaver&) { ++reported; });
    }
    int ticks() const { return desk.count(QStringLiteral("a tick")); }

    FakeDesk desk;
    std::shared_ptr<FakeSaver> view;
    int reported = 0;
};

} // namespace

TEST_F(HostedSaverTest, window_coversTheScreenInBlack_whenMade)
{
    const auto saver = make();
    ASSERT_EQ(desk.screen(0).windows().size(), 1u);
    const Window& window = *desk.screen(0).windows().front();
    EXPECT_EQ(window.kind(), QStringLiteral("host"));
    EXPECT_EQ(window.frame(), FakeDesk::left);
    EXPECT_EQ(window.level(), WindowLevel::ScreenSaver);
    EXPECT_TRUE(window.isOpaque());
    EXPECT_EQ(window.backgroundColor(), QColor(Qt::black));
    EXPECT_EQ(window.contentView(), view.get());
}

TEST_F(HostedSaverTest, window_leavesTheScreen_whenDestroyed)
{
    make().reset();
    EXPECT_TRUE(desk.screen(0).windows().empty());
}

TEST_F(HostedSaverTest, window_closes_whenStopped)
{
    const auto saver = make();
    int closes = 0;
    desk.desktop.notifications().addObserver(&closes, Notice::WindowWillClose, view->window(),
                                             [&closes] { ++closes; });
    saver->start();
    EXPECT_EQ(closes, 0);
    saver->stop();
    saver->stop();
    EXPECT_EQ(closes, 1);
    EXPECT_TRUE(desk.screen(0).windows().empty());
    desk.desktop.notifications().removeObserver(&closes);
}

TEST_F(HostedSaverTest, ticks_areThoseOfTheSaverAbove_whenThereIsOne)
{
    const auto saver = make();
    const auto tickAbove = [this] {
        desk.desktop.notifications().post(Notice::SaverAboveTicked, view.get());
    };
    tickAbove();
    EXPECT_EQ(reported, 0);
    saver->start();
    tickAbove();
    desk.timers.advance(1);
    EXPECT_EQ(ticks(), 10);
    EXPECT_EQ(saver->ticks(), 1);
    tickAbove();
    EXPECT_EQ(reported, 2);
    saver->stop();
    tickAbove();
    EXPECT_EQ(reported, 2);
}

TEST_F(HostedSaverTest, tick_comesAtTheInterval_whenRunning)
{
    const auto saver = make();
    desk.timers.advance(1);
    EXPECT_EQ(ticks(), 0);
    saver->start();
    desk.timers.advance(0.09);
    EXPECT_EQ(ticks(), 0);
    desk.timers.advance(0.02);
    EXPECT_EQ(ticks(), 1);
    desk.timers.advance(0.9);
    EXPECT_EQ(ticks(), 10);
    EXPECT_EQ(saver->ticks(), 10);
    EXPECT_EQ(reported, 10);
}

TEST_F(HostedSaverTest, interval_isAskedAnew_whenATickIsOver)
{
    const auto saver = make();
    view->onTick = [this] { view->setAnimationTimeInterval(0.5); };
    saver->start();
    desk.timers.advance(0.11);
    EXPECT_EQ(ticks(), 1);
    desk.timers.advance(0.45);
    EXPECT_EQ(ticks(), 1);
    desk.timers.advance(0.05);
    EXPECT_EQ(ticks(), 2);
}

TEST_F(HostedSaverTest, interval_isTheOneOfTheStart_whenTheViewSetsItThere)
{
    const auto saver = make();
    view->onStart = [this] { view->setAnimationTimeInterval(0.25); };
    saver->start();
    desk.timers.advance(1.1);
    EXPECT_EQ(ticks(), 4);
}

TEST_F(HostedSaverTest, tick_leavesTimeForOthers_whenTheViewAsksForNoPause)
{
    const auto saver = make();
    view->setAnimationTimeInterval(0);
    saver->start();
    desk.timers.advance(0.0105);
    EXPECT_EQ(ticks(), 10);
}

TEST_F(HostedSaverTest, stop_endsTheTicksAndStopsTheViewOnce_whenRunning)
{
    const auto saver = make();
    saver->start();
    saver->stop();
    saver->stop();
    desk.timers.advance(1);
    EXPECT_EQ(ticks(), 0);
    EXPECT_EQ(desk.count(QStringLiteral("a stop")), 1);
}

TEST_F(HostedSaverTest, stop_leavesTheViewAlone_whenItWasNeverStarted)
{
    const auto saver = make();
    saver->stop();
    saver->start();
    EXPECT_TRUE(desk.journal.isEmpty());
}

TEST_F(HostedSaverTest, tick_isNotReported_whenItStopsTheSaver)
{
    const auto saver = make();
    view->onTick = [&] { saver->stop(); };
    saver->start();
    desk.timers.advance(1);
    EXPECT_EQ(ticks(), 1);
    EXPECT_EQ(reported, 0);
}

TEST_F(HostedSaverTest, saver_livesToTheEndOfATick_whenItIsLetGoInIt)
{
    auto saver = make();
    const std::weak_ptr<HostedSaver> watched = saver;
    view->onTick = [&] {
        saver->stop();
        saver.reset();
    };
    saver->start();
    desk.timers.advance(1);
    EXPECT_EQ(desk.journal.last(), QStringLiteral("a tick done"));
    EXPECT_TRUE(watched.expired());
}

TEST_F(HostedSaverTest, rest_endsTheTicks_whenOff)
{
    const auto saver = make();
    saver->start();
    desk.timers.advance(0.35);
    saver->rest(Rest::Off);
    saver->rest(Rest::Off);
    desk.timers.advance(10);
    EXPECT_EQ(ticks(), 3);
    EXPECT_EQ(desk.count(QStringLiteral("a rest 3")), 1);
    saver->rest(Rest::None);
    desk.timers.advance(0.35);
    EXPECT_EQ(ticks(), 6);
    EXPECT_EQ(desk.count(QStringLiteral("a rest 0")), 1);
}

TEST_F(HostedSaverTest, rest_endsTheTicks_whenHeld_butNotTheOnesOfAStill)
{
    const auto saver = make();
    saver->start();
    saver->rest(Rest::Held);
    desk.timers.advance(1);
    EXPECT_EQ(ticks(), 0);
    saver->rest(Rest::Still);
    desk.timers.advance(1);
    EXPECT_EQ(ticks(), 10);
}

TEST_F(HostedSaverTest, rest_endsTheTicksOfASaverBehind_whichHasNoSayInIt)
{
    const auto behind = std::make_shared<FakePlainSaver>(FakeDesk::left);
    const auto saver = std::make_shared<HostedSaver>(desk.screen(0), behind, nullptr);
    saver->start();
    saver->rest(Rest::Still);
    desk.timers.advance(1);
    EXPECT_EQ(behind->ticks, 0);
    saver->rest(Rest::None);
    desk.timers.advance(1.05);
    EXPECT_EQ(behind->ticks, 10);
}

TEST_F(HostedSaverTest, display_isNotAsked_whileOff)
{
    const auto saver = make();
    saver->start();
    EXPECT_TRUE(ImageDesktop::surfaceOf(desk.screen(0)).isWatched());
    saver->rest(Rest::Off);
    EXPECT_FALSE(ImageDesktop::surfaceOf(desk.screen(0)).isWatched());
    saver->rest(Rest::None);
    EXPECT_TRUE(ImageDesktop::surfaceOf(desk.screen(0)).isWatched());
}

TEST_F(HostedSaverTest, screen_isBlack_whenOff)
{
    const auto saver = make();
    saver->start();
    saver->rest(Rest::Off);
    ASSERT_EQ(desk.screen(0).windows().size(), 2U);
    const Window& curtain = *desk.screen(0).windows().back();
    EXPECT_EQ(curtain.frame(), FakeDesk::left);
    EXPECT_TRUE(curtain.isOpaque());
    EXPECT_EQ(curtain.backgroundColor(), QColor(Qt::black));
    saver->rest(Rest::Still);
    EXPECT_EQ(desk.screen(0).windows().size(), 1U);
}

TEST_F(HostedSaverTest, screen_staysBlack_whenItIsResized)
{
    const auto saver = make();
    saver->start();
    saver->rest(Rest::Off);
    const Rect larger{{0, 0}, {100, 80}};
    desk.desktop.resizeScreen(desk.screen(0), larger);
    saver->fitToScreen();
    EXPECT_EQ(desk.screen(0).windows().back()->frame(), larger);
}

TEST_F(HostedSaverTest, rest_beginsWithTheStart_whenAskedForBefore)
{
    const auto saver = make();
    saver->rest(Rest::Off);
    EXPECT_TRUE(desk.journal.isEmpty());
    saver->start();
    EXPECT_EQ(desk.journal.back(), QStringLiteral("a rest 3"));
    desk.timers.advance(1);
    EXPECT_EQ(ticks(), 0);
}

TEST_F(HostedSaverTest, rest_isAskedForAgain_whenASaverAboveBeginsLater)
{
    const auto saver = make();
    saver->start();
    saver->rest(Rest::Off);
    desk.desktop.notifications().post(Notice::SaverAboveTicked, view.get());
    desk.desktop.notifications().post(Notice::SaverAboveTicked, view.get());
    EXPECT_EQ(desk.count(QStringLiteral("a rest 3")), 2);
}

TEST_F(HostedSaverTest, stop_takesTheBlackAway_whenOff)
{
    const auto saver = make();
    saver->start();
    saver->rest(Rest::Off);
    saver->stop();
    EXPECT_TRUE(desk.screen(0).windows().empty());
}

TEST_F(HostedSaverTest, saver_isHeld_whileNobodySeesIt)
{
    const auto saver = make();
    saver->start();
    saver->setSeen(false);
    EXPECT_EQ(desk.journal.back(), QStringLiteral("a rest 1"));
    desk.timers.advance(10);
    EXPECT_EQ(ticks(), 0);
    EXPECT_EQ(desk.screen(0).windows().size(), 1U);
    saver->setSeen(true);
    EXPECT_EQ(desk.journal.back(), QStringLiteral("a rest 0"));
    desk.timers.advance(1.05);
    EXPECT_EQ(ticks(), 10);
}

TEST_F(HostedSaverTest, still_isOff_whileNobodySeesIt)
{
    const auto saver = make();
    saver->start();
    saver->setSeen(false);
    saver->rest(Rest::Still);
    EXPECT_EQ(desk.journal.back(), QStringLiteral("a rest 3"));
    desk.timers.advance(10);
    EXPECT_EQ(ticks(), 0);
    saver->setSeen(true);
    EXPECT_EQ(desk.journal.back(), QStringLiteral("a rest 2"));
    desk.timers.advance(1.05);
    EXPECT_EQ(ticks(), 10);
}

TEST_F(HostedSaverTest, start_holdsTheSaver_whenNobodySeesItYet)
{
    const auto saver = make();
    saver->setSeen(false);
    saver->start();
    EXPECT_EQ(desk.journal.back(), QStringLiteral("a rest 1"));
}

} // namespace kestro
