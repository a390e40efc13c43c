#include "platform/display/DisplayTest.h"
#include "platform/display/desktop/Notifications.h"

#include <QCoreApplication>

namespace kestro {

namespace {

class WindowTest : public DisplayTest {
protected:
    /// A window all of one colour.
    struct Pane {
        Pane(const Rect& frame, const QColor& colour, Screen* on)
            : view({{0, 0}, frame.size}, colour)
            , window({frame, on, QStringLiteral("pane")})
        {
            window.setContentView(&view);
        }
        FillView view;
        Window window;
    };
};

} // namespace

TEST_F(WindowTest, orderFront_laysWindowAboveOthersOfItsLevel)
{
    Pane red({{10, 10}, {50, 50}}, Qt::red, &screen());
    Pane blue({{30, 30}, {50, 50}}, Qt::blue, &screen());
    red.window.orderFront();
    blue.window.orderFront();
    screen().update();
    EXPECT_EQ(at(40, 40), QColor(Qt::blue));

    red.window.orderFront();
    screen().update();
    EXPECT_EQ(at(40, 40), QColor(Qt::red));
    EXPECT_EQ(at(70, 70), QColor(Qt::blue));
}

TEST_F(WindowTest, orderBack_laysWindowBelowOthersOfItsLevelOnly)
{
    Pane low({{0, 0}, {50, 50}}, Qt::red, &screen());
    Pane high({{0, 0}, {50, 50}}, Qt::blue, &screen());
    Pane higher({{0, 0}, {50, 50}}, Qt::green, &screen());
    high.window.setLevel(WindowLevel::Shielding);
    higher.window.setLevel(WindowLevel::Shielding);
    low.window.orderFront();
    high.window.orderFront();
    higher.window.orderBack();
    EXPECT_EQ(screen().windows(), (std::vector<Window*>{&low.window, &higher.window, &high.window}));
    screen().update();
    EXPECT_EQ(at(20, 20), QColor(Qt::blue));
}

TEST_F(WindowTest, setLevel_movesShownWindowToFrontOfItsNewLevel)
{
    Pane red({{0, 0}, {50, 50}}, Qt::red, &screen());
    Pane blue({{0, 0}, {50, 50}}, Qt::blue, &screen());
    red.window.orderFront();
    blue.window.orderFront();
    red.window.setLevel(WindowLevel::ScreenSaver);
    screen().update();
    EXPECT_EQ(at(20, 20), QColor(Qt::red));
    blue.window.setLevel(WindowLevel::ScreenSaver);
    screen().update();
    EXPECT_EQ(at(20, 20), QColor(Qt::blue));
}

TEST_F(WindowTest, setLevel_doesNotShowHiddenWindow)
{
    Pane red({{0, 0}, {50, 50}}, Qt::red, &screen());
    red.window.setLevel(WindowLevel::Shielding);
    EXPECT_FALSE(red.window.isVisible());
    EXPECT_TRUE(screen().windows().empty());
}

TEST_F(WindowTest, setAlphaValue_mixesWindowWithWhatIsBelow)
{
    Pane white({{0, 0}, {200, 100}}, Qt::white, &screen());
    Pane black({{0, 0}, {50, 50}}, Qt::black, &screen());
    white.window.orderFront();
    black.window.orderFront();
    black.window.setAlphaValue(0.5F);
    screen().update();
    EXPECT_NEAR(at(20, 20).red(), 128, 1);
    EXPECT_EQ(at(100, 20), QColor(Qt::white));

    black.window.setAlphaValue(0);
    screen().update();
    EXPECT_EQ(at(20, 20), QColor(Qt::white));
}

TEST_F(WindowTest, setFrameOrigin_leavesNoTrace)
{
    Pane red({{10, 10}, {20, 20}}, Qt::red, &screen());
    red.window.orderFront();
    screen().update();
    red.window.setFrameOrigin({100, 50});
    screen().update();
    EXPECT_EQ(at(15, 15), QColor(Qt::black));
    EXPECT_EQ(at(105, 55), QColor(Qt::red));
    EXPECT_EQ(surface().lastPresented(),
              QRegion(pixels({{10, 10}, {20, 20}})) + pixels({{100, 50}, {20, 20}}));
    EXPECT_EQ(red.view.drawn.size(), 1U);
}

TEST_F(WindowTest, orderOut_showsWhatWasBelow)
{
    Pane red({{10, 10}, {20, 20}}, Qt::red, &screen());
    red.window.orderFront();
    screen().update();
    red.window.orderOut();
    screen().update();
    EXPECT_FALSE(red.window.isVisible());
    EXPECT_EQ(at(15, 15), QColor(Qt::black));
    EXPECT_EQ(surface().lastPresented(), QRegion(pixels({{10, 10}, {20, 20}})));
}

TEST_F(WindowTest, destruction_takesWindowOffTheScreen)
{
    {
        Pane red({{10, 10}, {20, 20}}, Qt::red, &screen());
        red.window.orderFront();
        screen().update();
    }
    screen().update();
    EXPECT_EQ(at(15, 15), QColor(Qt::black));
    EXPECT_TRUE(screen().windows().empty());
}

TEST_F(WindowTest, setFrameDisplay_resizesContentViewAndDrawsItAtOnceWhenAsked)
{
    Pane red({{10, 10}, {20, 20}}, Qt::red, &screen());
    red.view.setFrameOrigin({0, 3});
    red.window.orderFront();
    screen().update();
    red.view.drawn.clear();

    red.window.setFrameDisplay({{30, 20}, {40, 10}}, false);
    EXPECT_EQ(red.view.frame(), (Rect{{0, 3}, {40, 10}}));
    EXPECT_TRUE(red.view.drawn.empty());
    red.window.setFrameDisplay({{30, 20}, {40, 12}}, true);
    EXPECT_EQ(red.view.drawn.size(), 1U);
    screen().update();
    EXPECT_EQ(red.view.drawn.size(), 1U);
    EXPECT_EQ(at(50, 25), QColor(Qt::red));
    EXPECT_EQ(at(15, 15), QColor(Qt::black));
}

TEST_F(WindowTest, setFrameDisplay_drawsViewsAtOnceWhenTheSizeStays)
{
    Pane red({{10, 10}, {20, 20}}, Qt::red, &screen());
    red.window.orderFront();
    screen().update();
    red.view.setColour(Qt::green);
    red.window.setFrameDisplay({{50, 10}, {20, 20}}, true);
    screen().update();
    EXPECT_EQ(at(55, 15), QColor(Qt::green));
}

TEST_F(WindowTest, opaqueWindow_isBlackWhereNothingWasDrawn)
{
    Pane white({{0, 0}, {200, 100}}, Qt::white, &screen());
    Window opaque({{{0, 0}, {50, 50}}, &screen(), QStringLiteral("opaque")});
    white.window.orderFront();
    opaque.orderFront();
    screen().update();
    EXPECT_EQ(at(20, 20), QColor(Qt::black));

    opaque.setOpaque(false);
    screen().update();
    EXPECT_EQ(at(20, 20), QColor(Qt::white));
}

TEST_F(WindowTest, setBackgroundColor_fillsBackingStoreBeforeViewsDraw)
{
    FillView view({{0, 0}, {50, 50}}, Qt::red);
    FillView inside({{10, 10}, {10, 10}}, Qt::blue);
    View empty({{0, 0}, {50, 50}});
    Window window({{{0, 0}, {50, 50}}, &screen(), QStringLiteral("window")});
    window.setBackgroundColor(Qt::green);
    window.setContentView(&empty);
    empty.addSubview(inside);
    window.orderFront();
    screen().update();
    EXPECT_EQ(at(5, 5), QColor(Qt::green));
    EXPECT_EQ(at(15, 15), QColor(Qt::blue));
}

TEST_F(WindowTest, windowOfTwoScreens_isCutAtItsOwnScreensEdge)
{
    Screen& right = desktop.addScreen({{200, 0}, {100, 100}});
    Pane red({{180, 10}, {40, 20}}, Qt::red, &screen());
    red.window.orderFront();
    screen().update();
    right.update();
    EXPECT_EQ(at(190, 20), QColor(Qt::red));
    EXPECT_EQ(at(10, 20, 1), QColor(Qt::black));
}

TEST_F(WindowTest, screenAtNegativeOrigin_showsItsWindowAtItsPlace)
{
    desktop.addScreen({{-300, -50}, {100, 80}});
    Pane red({{-290, -40}, {20, 20}}, Qt::red, &screen(1));
    red.window.orderFront();
    screen(1).update();
    EXPECT_EQ(at(10, 10, 1), QColor(Qt::red));
    EXPECT_EQ(at(29, 29, 1), QColor(Qt::red));
    EXPECT_EQ(at(9, 9, 1), QColor(Qt::black));
    EXPECT_EQ(at(30, 30, 1), QColor(Qt::black));
}

TEST_F(WindowTest, screenThatMoves_takesItsWindowsAlong)
{
    auto& other = desktop.addScreen({{200, 0}, {100, 100}});
    Window shown({{{210, 20}, {30, 40}}, &other, "shown"});
    Window hidden({{{250, 60}, {10, 10}}, &other, "hidden"});
    Window elsewhere({{{10, 20}, {30, 40}}, desktop.mainScreen(), "elsewhere"});
    shown.orderFront();
    desktop.resizeScreen(other, {{-100, 50}, {100, 80}});
    EXPECT_EQ(shown.frame(), (Rect{{-90, 70}, {30, 40}}));
    EXPECT_EQ(hidden.frame(), (Rect{{-50, 110}, {10, 10}}));
    EXPECT_EQ(elsewhere.frame(), (Rect{{10, 20}, {30, 40}}));
}

TEST_F(WindowTest, windowWithoutScreen_isNeverVisible)
{
    Pane red({{10, 10}, {20, 20}}, Qt::red, nullptr);
    red.window.orderFront();
    red.view.display();
    red.window.setFrameDisplay({{0, 0}, {30, 30}}, true);
    red.window.close();
    EXPECT_FALSE(red.window.isVisible());
    EXPECT_EQ(red.window.screen(), nullptr);
    EXPECT_EQ(red.view.drawn.size(), 2U);
}

TEST_F(WindowTest, windowWhoseScreenWentAway_livesOnUnseen)
{
    Screen& second = desktop.addScreen({{200, 0}, {100, 100}});
    Pane red({{210, 10}, {20, 20}}, Qt::red, &second);
    red.window.orderFront();
    desktop.removeScreen(second);
    EXPECT_EQ(red.window.screen(), nullptr);
    EXPECT_FALSE(red.window.isVisible());
    red.window.setFrameOrigin({0, 0});
    red.window.orderFront();
    EXPECT_FALSE(red.window.isVisible());
}

TEST_F(WindowTest, close_postsNoticeWhileTheWindowIsStillShown)
{
    Pane red({{10, 10}, {20, 20}}, Qt::red, &screen());
    Pane blue({{10, 10}, {20, 20}}, Qt::blue, &screen());
    red.window.orderFront();
    blue.window.orderFront();
    std::vector<bool> visibleAtNotice;
    desktop.notifications().addObserver(this, Notice::WindowWillClose, &red.window,
                                        [&] { visibleAtNotice.push_back(red.window.isVisible()); });
    blue.window.close();
    EXPECT_TRUE(visibleAtNotice.empty());
    red.window.close();
    EXPECT_EQ(visibleAtNotice, std::vector<bool>{true});
    EXPECT_FALSE(red.window.isVisible());
}

TEST_F(WindowTest, disableFlushWindow_keepsChangesFromTheScreenUntilEnabled)
{
    Pane red({{10, 10}, {20, 20}}, Qt::red, &screen());
    Pane under({{0, 0}, {40, 40}}, Qt::white, &screen());
    Pane cover({{10, 10}, {10, 10}}, Qt::blue, &screen());
    red.window.orderFront();
    under.window.orderBack();
    cover.window.orderFront();
    screen().update();

    red.window.disableFlushWindow();
    red.view.setColour(Qt::green);
    red.view.display();
    red.window.setFrameOrigin({100, 10});
    under.view.setColour(Qt::yellow);
    under.view.setNeedsDisplay(true);
    cover.window.orderOut();
    screen().update();
    EXPECT_EQ(at(15, 15), QColor(Qt::red));
    EXPECT_EQ(at(105, 15), QColor(Qt::black));
    EXPECT_EQ(at(5, 5), QColor(Qt::yellow));

    red.window.enableFlushWindow();
    screen().update();
    EXPECT_EQ(at(15, 15), QColor(Qt::yellow));
    EXPECT_EQ(at(105, 15), QColor(Qt::green));
}

TEST_F(WindowTest, disableFlushWindow_letsGoOfContentThatGoesMeanwhile)
{
    View view({{0, 0}, {20, 20}});
    Window window({{{0, 0}, {20, 20}}, &screen(), QStringLiteral("window")});
    window.setContentView(&view);
    {
        FakeLayer layer(Qt::red);
        view.setLayer(&layer);
        window.orderFront();
        screen().update();
        window.disableFlushWindow();
        view.setLayer(nullptr);
    }
    screen().update();
    EXPECT_EQ(at(10, 10), QColor(Qt::black));
}

TEST_F(WindowTest, update_presentsNothing_whenNothingChanged)
{
    Pane red({{10, 10}, {20, 20}}, Qt::red, &screen());
    red.window.orderFront();
    screen().update();
    EXPECT_EQ(surface().presentCount(), 1);
    screen().update();
    red.window.setFrameOrigin({10, 10});
    red.window.setAlphaValue(1);
    screen().update();
    EXPECT_EQ(surface().presentCount(), 1);
}

TEST_F(WindowTest, changeBelowOpaqueWindow_presentsNothing)
{
    Pane red({{10, 10}, {20, 20}}, Qt::red, &screen());
    Pane blue({{0, 0}, {200, 100}}, Qt::blue, &screen());
    red.window.orderFront();
    blue.window.orderFront();
    screen().update();
    red.view.setColour(Qt::green);
    red.view.display();
    red.window.setFrameOrigin({50, 50});
    screen().update();
    EXPECT_EQ(surface().presentCount(), 1);
}

TEST_F(WindowTest, changes_areShownByTheEventLoopInOnePicture)
{
    Pane red({{10, 10}, {20, 20}}, Qt::red, &screen());
    red.window.orderFront();
    QCoreApplication::processEvents();
    ASSERT_EQ(surface().presentCount(), 1);
    red.window.setFrameOrigin({20, 10});
    red.window.setFrameOrigin({60, 10});
    red.view.setNeedsDisplay(true);
    QCoreApplication::processEvents();
    EXPECT_EQ(surface().presentCount(), 2);
    EXPECT_EQ(at(65, 15), QColor(Qt::red));
}

TEST_F(WindowTest, resizedScreen_isComposedAsAWhole)
{
    Pane red({{10, 10}, {20, 20}}, Qt::red, &screen());
    red.window.orderFront();
    screen().update();
    desktop.resizeScreen(screen(), {{0, 0}, {120, 150}});
    screen().update();
    EXPECT_EQ(surface().lastPresented(), QRegion(0, 0, 120, 150));
    EXPECT_EQ(at(15, 15), QColor(Qt::red));
}

} // namespace kestro
