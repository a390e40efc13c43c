#include "platform/display/desktop/SharingDesktop.h"

#include "platform/base/Log.h"
#include "platform/display/DisplayTest.h"
#include "platform/display/desktop/Cursor.h"

namespace kestro {

namespace {

using Kind = MonitorChoice::Kind;

constexpr Rect left{{0, 0}, {128, 96}};
constexpr Rect right{{128, 0}, {128, 96}};
constexpr Rect third{{256, 0}, {128, 96}};

/// Monitors side by side; what is shown is red in its left half and blue in its right one.
class SharingDesktopTest : public DisplayTest {
protected:
    SharingDesktopTest()
        : DisplayTest({left, right, third})
    {
        int number = 0;
        for (Screen* each : desktop.screens())
            each->setName(QStringLiteral("M%1").arg(number++));
    }

    /// Covers the only screen of a desktop with the picture.
    void cover(const SharingDesktop& shared)
    {
        Screen& shown = *shared.mainScreen();
        const Rect frame = shown.frame();
        const Size half{frame.size.width / 2, frame.size.height};
        content.addSubview(red);
        content.addSubview(blue);
        content.setFrame({{0, 0}, frame.size});
        red.setFrame({{0, 0}, half});
        blue.setFrame({{half.width, 0}, half});
        window.emplace(Window::Description{frame, &shown, QStringLiteral("window")});
        window->setContentView(&content);
        window->orderFront();
        update(shared);
    }
    void update(const SharingDesktop& shared)
    {
        for (Screen* each : desktop.screens())
            each->update();
        for (Screen* each : shared.screens())
            each->update();
    }
    /// The colours at a quarter and three quarters of a monitor's width.
    [[nodiscard]] std::pair<QColor, QColor> colours(size_t index) const
    {
        return {at(32, 48, index), at(96, 48, index)};
    }
    [[nodiscard]] static std::vector<Rect> framesOf(const Desktop& of)
    {
        std::vector<Rect> frames;
        for (const Screen* each : of.screens())
            frames.push_back(each->frame());
        return frames;
    }

    View content{{}};
    FillView red{{}, Qt::red};
    FillView blue{{}, Qt::blue};
    std::optional<Window> window;
};

using Colours = std::pair<QColor, QColor>;
const Colours redAndBlue{Qt::red, Qt::blue};
const Colours allBlack{Qt::black, Qt::black};

} // namespace

TEST_F(SharingDesktopTest, mirror_isOneScreen_shownByEveryMonitor)
{
    SharingDesktop shared(desktop, {ScreensMode::Mirror, {}});
    EXPECT_EQ(framesOf(shared), std::vector{left});
    EXPECT_TRUE(shared.isFirst(*shared.mainScreen()));
    EXPECT_EQ(&shared.mainScreen()->desktop(), &shared);
    cover(shared);
    for (size_t index = 0; index < 3; ++index)
        EXPECT_EQ(colours(index), redAndBlue);
}

TEST_F(SharingDesktopTest, span_isOneScreen_ofWhichEachMonitorShowsItsPart)
{
    SharingDesktop shared(desktop, {ScreensMode::Span, {}});
    EXPECT_EQ(framesOf(shared), (std::vector<Rect>{{{0, 0}, {384, 96}}}));
    cover(shared);
    EXPECT_EQ(colours(0), (Colours{Qt::red, Qt::red}));
    EXPECT_EQ(colours(1), redAndBlue);
    EXPECT_EQ(colours(2), (Colours{Qt::blue, Qt::blue}));
}

TEST_F(SharingDesktopTest, monitorsThatAreNotChosen_areBlack)
{
    SharingDesktop shared(desktop, {ScreensMode::Each, {Kind::Named, {QStringLiteral("M1")}}});
    surface(0).canvas().fill(Qt::white);
    cover(shared);
    EXPECT_EQ(colours(0), allBlack);
    EXPECT_EQ(colours(1), redAndBlue);
    EXPECT_EQ(colours(2), allBlack);
    EXPECT_EQ(framesOf(shared), std::vector{right});
    EXPECT_TRUE(shared.isFirst(*shared.mainScreen()));
}

TEST_F(SharingDesktopTest, monitorsOwnScreen_drawsNothing_whileItShowsAPicture)
{
    SharingDesktop shared(desktop, {ScreensMode::Mirror, {}});
    cover(shared);
    screen(1).setFrame(right);
    screen(1).update();
    EXPECT_EQ(colours(1), redAndBlue);
}

TEST_F(SharingDesktopTest, each_isAScreenForEveryMonitor)
{
    const SharingDesktop shared(desktop, {ScreensMode::Each, {}});
    EXPECT_EQ(framesOf(shared), (std::vector{left, right, third}));
}

TEST_F(SharingDesktopTest, picture_isAlsoOnAMonitorThatComes)
{
    SharingDesktop shared(desktop, {ScreensMode::Mirror, {}});
    cover(shared);
    desktop.addScreen({{384, 0}, {128, 96}});
    update(shared);
    EXPECT_EQ(colours(3), redAndBlue);
}

TEST_F(SharingDesktopTest, span_isResized_whenAMonitorGoes)
{
    SharingDesktop shared(desktop, {ScreensMode::Span, {}});
    int resized = 0;
    shared.setScreenObserver({{}, [&](Screen&) { ++resized; }, {}});
    desktop.removeScreen(screen(2));
    EXPECT_EQ(framesOf(shared), (std::vector<Rect>{{{0, 0}, {256, 96}}}));
    EXPECT_EQ(resized, 1);
}

TEST_F(SharingDesktopTest, mirror_goesOnWithTheNext_whenTheFirstMonitorGoes)
{
    SharingDesktop shared(desktop, {ScreensMode::Mirror, {}});
    cover(shared);
    Screen* const before = shared.mainScreen();
    desktop.removeScreen(screen(0));
    EXPECT_EQ(shared.mainScreen(), before);
    EXPECT_EQ(before->frame(), right);
    update(shared);
    EXPECT_EQ(colours(0), redAndBlue);
    EXPECT_EQ(colours(1), redAndBlue);
}

TEST_F(SharingDesktopTest, span_isShownAnew_whenAMonitorMoves)
{
    SharingDesktop shared(desktop, {ScreensMode::Span, {}});
    cover(shared);
    desktop.resizeScreen(screen(2), {{128, 96}, {128, 96}});
    EXPECT_EQ(framesOf(shared), (std::vector<Rect>{{{0, 0}, {256, 192}}}));
    update(shared);
    // The window kept its place at the lower left: it is above neither of the two lower monitors.
    EXPECT_EQ(colours(2), allBlack);
    EXPECT_EQ(colours(0), (Colours{Qt::red, Qt::red}));
}

TEST_F(SharingDesktopTest, observer_isToldOfScreens_thatComeAndGoWithTheirMonitors)
{
    SharingDesktop shared(desktop, {ScreensMode::Each, {Kind::First, {}}});
    QStringList told;
    const auto note = [&](const char* what) {
        return [&told, what](Screen& each) {
            told.append(QStringLiteral("%1 %2").arg(QLatin1String(what)).arg(each.frame().left()));
        };
    };
    shared.setScreenObserver({note("added"), note("resized"), note("removed")});
    desktop.removeScreen(screen(0));
    EXPECT_EQ(told, (QStringList{QStringLiteral("removed 0"), QStringLiteral("added 128")}));
}

TEST_F(SharingDesktopTest, screensAreGone_whileThereIsNoMonitor)
{
    SharingDesktop shared(desktop, {ScreensMode::Mirror, {}});
    while (desktop.mainScreen())
        desktop.removeScreen(*desktop.mainScreen());
    EXPECT_TRUE(shared.screens().empty());
    desktop.addScreen(left);
    EXPECT_EQ(framesOf(shared), std::vector{left});
}

TEST_F(SharingDesktopTest, monitorIsBlackAgain_eachTimeThatItIsNotChosenAnyMore)
{
    const LogCapture capture([](const QString&) {});
    SharingDesktop shared(desktop, {ScreensMode::Mirror, {Kind::Named, {QStringLiteral("M3")}}});
    cover(shared);
    for (int turn = 0; turn < 2; ++turn) {
        EXPECT_EQ(colours(0), redAndBlue);
        Screen& added = desktop.addScreen({{384, 0}, {128, 96}});
        added.setName(QStringLiteral("M3"));
        desktop.resizeScreen(added, added.frame());
        update(shared);
        EXPECT_EQ(colours(0), allBlack);
        EXPECT_EQ(colours(3), redAndBlue);
        desktop.removeScreen(added);
        update(shared);
    }
}

TEST_F(SharingDesktopTest, missingNames_areLoggedOnce)
{
    QStringList said;
    const LogCapture capture([&](const QString& line) { said.append(line); });
    SharingDesktop shared(desktop,
                          {ScreensMode::Each, {Kind::Named, {QStringLiteral("X"), QStringLiteral("Y")}}});
    desktop.resizeScreen(screen(0), left);
    EXPECT_EQ(said, QStringList{QStringLiteral("No monitor has the name X, Y: all are used.")});
    screen(0).setName(QStringLiteral("X"));
    desktop.resizeScreen(screen(0), left);
    EXPECT_EQ(said.back(), QStringLiteral("No monitor has the name Y."));
    EXPECT_EQ(said.size(), 2);
}

TEST_F(SharingDesktopTest, input_isToldByTheFirstScreen_whereverItHappened)
{
    SharingDesktop shared(desktop, {ScreensMode::Each, {Kind::Named, {QStringLiteral("M1")}}});
    std::vector<QPointF> places;
    shared.mainScreen()->surface().setInputHandler(
        [&](const InputEvent& event) { places.push_back(event.position); });
    for (size_t index = 0; index < 3; ++index)
        surface(index).sendInput({InputEvent::Kind::Motion, {10, 20}});
    EXPECT_EQ(places, (std::vector<QPointF>{{-118, 20}, {10, 20}, {138, 20}}));
}

TEST_F(SharingDesktopTest, picture_isSeen_whileAnyOfItsMonitorsIs)
{
    SharingDesktop shared(desktop,
                          {ScreensMode::Mirror, {Kind::Named, {QStringLiteral("M0"), QStringLiteral("M1")}}});
    std::vector<bool> told;
    shared.mainScreen()->surface().setSeenHandler([&](bool isSeen) { told.push_back(isSeen); });
    surface(0).setSeen(false);
    EXPECT_TRUE(told.empty());
    surface(1).setSeen(false);
    EXPECT_EQ(told, std::vector{false}); // that the third is seen does not count: it is black
    surface(0).setSeen(true);
    EXPECT_EQ(told, (std::vector{false, true}));
}

TEST_F(SharingDesktopTest, cursor_isThatOfAllMonitors)
{
    SharingDesktop shared(desktop, {ScreensMode::Each, {Kind::First, {}}});
    shared.cursor().hide();
    for (size_t index = 0; index < 3; ++index)
        EXPECT_TRUE(surface(index).isCursorHidden());
}

} // namespace kestro
