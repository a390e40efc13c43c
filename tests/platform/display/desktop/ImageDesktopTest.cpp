#include "platform/display/desktop/ImageDesktop.h"

#include "platform/display/DisplayTest.h"
#include "platform/display/desktop/Cursor.h"

namespace kestro {

namespace {

class ImageDesktopTest : public DisplayTest {
protected:
    ImageDesktopTest()
        : DisplayTest({{{0, 0}, {200, 100}}, {{-150, 20}, {150, 80}}}, 2.0)
    {
    }
};

} // namespace

TEST_F(ImageDesktopTest, screens_haveTheirFramesAndPixels)
{
    ASSERT_EQ(desktop.screens().size(), 2U);
    EXPECT_EQ(desktop.mainScreen(), desktop.screens().front());
    EXPECT_EQ(screen(1).frame(), (Rect{{-150, 20}, {150, 80}}));
    EXPECT_EQ(surface(1).canvas().size(), QSize(300, 160));
    EXPECT_EQ(surface(1).pixelRatio(), 2.0);
    EXPECT_EQ(&screen(1).desktop(), &desktop);
}

TEST_F(ImageDesktopTest, observer_isToldOfScreensThatComeChangeAndGo)
{
    std::vector<std::pair<char, Rect>> told;
    desktop.setScreenObserver({[&](Screen& each) { told.emplace_back('a', each.frame()); },
                               [&](Screen& each) { told.emplace_back('s', each.frame()); },
                               [&](Screen& each) {
                                   told.emplace_back('r', each.frame());
                                   EXPECT_EQ(desktop.screens().back(), &each);
                               }});
    Screen& added = desktop.addScreen({{200, 0}, {50, 50}});
    desktop.resizeScreen(added, {{200, 0}, {60, 50}});
    desktop.removeScreen(added);
    const std::vector<std::pair<char, Rect>> expected{
        {'a', {{200, 0}, {50, 50}}}, {'s', {{200, 0}, {60, 50}}}, {'r', {{200, 0}, {60, 50}}}};
    EXPECT_EQ(told, expected);
    EXPECT_EQ(desktop.screens().size(), 2U);
}

TEST_F(ImageDesktopTest, mainScreen_isNull_whenAllAreUnplugged)
{
    while (desktop.mainScreen())
        desktop.removeScreen(*desktop.mainScreen());
    EXPECT_TRUE(desktop.screens().empty());
}

TEST_F(ImageDesktopTest, cursor_hidesOverAllScreens_untilEachHideIsUndone)
{
    desktop.cursor().hide();
    desktop.cursor().hide();
    EXPECT_TRUE(surface(0).isCursorHidden());
    EXPECT_TRUE(surface(1).isCursorHidden());
    desktop.addScreen({{200, 0}, {50, 50}});
    EXPECT_TRUE(surface(2).isCursorHidden());
    desktop.cursor().unhide();
    EXPECT_TRUE(surface(0).isCursorHidden());
    desktop.cursor().unhide();
    EXPECT_FALSE(surface(0).isCursorHidden());
    desktop.cursor().unhide();
    desktop.cursor().hide();
    EXPECT_TRUE(desktop.cursor().isHidden());
}

TEST_F(ImageDesktopTest, imageSurface_handsInputToItsHandler)
{
    std::vector<QPointF> positions;
    surface().setInputHandler([&](const InputEvent& event) { positions.push_back(event.position); });
    surface().sendInput({InputEvent::Kind::Motion, {3, 4}});
    EXPECT_EQ(positions, std::vector<QPointF>{QPointF(3, 4)});
}

} // namespace kestro
