#include "host/FakeDesk.h"

#include <gtest/gtest.h>

namespace kestro {

namespace {

constexpr Rect third{{96, 0}, {16, 48}};

class SessionScreensTest : public testing::Test {
protected:
    FakeDesk desk;
    SaverSession session{desk.desktop, desk.factory()};
};

} // namespace

TEST_F(SessionScreensTest, screen_getsASaver_whenItComes)
{
    session.start();
    Screen& added = desk.desktop.addScreen(third);
    EXPECT_EQ(desk.count(QStringLiteral("c start")), 1);
    ASSERT_EQ(added.windows().size(), 1u);
    EXPECT_EQ(added.windows().front()->frame(), third);
    desk.timers.advance(0.11);
    EXPECT_EQ(desk.count(QStringLiteral("c tick")), 1);
}

TEST_F(SessionScreensTest, firstScreen_getsASaver_whenThereWasNoneAtTheStart)
{
    desk.desktop.removeScreen(desk.screen(1));
    desk.desktop.removeScreen(desk.screen(0));
    EXPECT_TRUE(session.start());
    desk.desktop.addScreen(third);
    EXPECT_EQ(desk.count(QStringLiteral("a start")), 1);
}

TEST_F(SessionScreensTest, screen_getsNoSaver_whenTheSessionIsOver)
{
    session.start();
    session.stop();
    EXPECT_TRUE(desk.desktop.addScreen(third).windows().empty());
    EXPECT_EQ(desk.savers.size(), 2u);
}

TEST_F(SessionScreensTest, saver_isStoppedAndLetGo_whenItsScreenGoes)
{
    session.start();
    desk.desktop.removeScreen(desk.screen(0));
    EXPECT_EQ(desk.count(QStringLiteral("a stop")), 1);
    EXPECT_EQ(desk.count(QStringLiteral("b stop")), 0);
    EXPECT_EQ(session.savers().size(), 1u);
    desk.timers.advance(0.11);
    EXPECT_EQ(desk.count(QStringLiteral("a tick")), 0);
    EXPECT_EQ(desk.count(QStringLiteral("b tick")), 1);
    session.stop();
    EXPECT_EQ(desk.count(QStringLiteral("a stop")), 1);
}

TEST_F(SessionScreensTest, saver_isLetGoWithoutHarm_whenItsScreenGoesInItsTick)
{
    session.start();
    desk.savers[0]->onTick = [this] { desk.desktop.removeScreen(desk.screen(0)); };
    desk.timers.advance(0.35);
    EXPECT_EQ(desk.count(QStringLiteral("a tick done")), 1);
    EXPECT_EQ(desk.count(QStringLiteral("a stop")), 1);
    EXPECT_EQ(desk.count(QStringLiteral("b tick")), 3);
}

TEST_F(SessionScreensTest, windowAndView_takeTheNewSize_whenTheScreenChanges)
{
    session.start();
    constexpr Rect wider{{0, 0}, {80, 60}};
    desk.desktop.resizeScreen(desk.screen(0), wider);
    EXPECT_EQ(desk.screen(0).windows().front()->frame(), wider);
    EXPECT_EQ(desk.savers[0]->frame(), wider);
    EXPECT_EQ(desk.savers[1]->frame().size, FakeDesk::right.size);
}

TEST_F(SessionScreensTest, view_isFittedAnew_whenItsScreenIsOnAnotherMonitor)
{
    session.start();
    int fits = 0;
    desk.savers[0]->onFit = [&fits] { ++fits; };
    desk.desktop.resizeScreen(desk.screen(0), desk.screen(0).frame());
    EXPECT_EQ(fits, 0);
    desk.screen(0).setMonitorSize({2560, 1440});
    desk.desktop.resizeScreen(desk.screen(0), desk.screen(0).frame());
    EXPECT_EQ(fits, 1);
    desk.desktop.resizeScreen(desk.screen(0), desk.screen(0).frame());
    EXPECT_EQ(fits, 1);
}

TEST_F(SessionScreensTest, pointer_isSeenAnew_whenTheScreensChange)
{
    int wakes = 0;
    session.setWakeHandler([&] { ++wakes; });
    session.start();
    const auto& surface = ImageDesktop::surfaceOf(desk.screen(0));
    surface.sendInput({InputEvent::Kind::Motion, {1, 1}});
    desk.desktop.addScreen(third);
    surface.sendInput({InputEvent::Kind::Motion, {40, 40}});
    EXPECT_EQ(wakes, 0);
    surface.sendInput({InputEvent::Kind::Motion, {40, 20}});
    EXPECT_EQ(wakes, 1);
}

} // namespace kestro
