#include "engine/BackgroundTest.h"

#include "platform/display/desktop/Notifications.h"

#include <QCoreApplication>

#include <algorithm>

namespace kestro {

BackgroundTest::BackgroundTest()
{
    set("FullScreenMode", "0");
    set("PartialMode", "0");
    set("Scale", "0.5");
    set("BackSaver", SaverFolders::putBundle(folders.savers() + "/Blue.saver", "FakeBackSaver"));
}

BackgroundTest::~BackgroundTest()
{
    desktop.notifications().post(Notice::ApplicationWillTerminate, nullptr);
    if (hostWindow) hostWindow->setContentView(nullptr);
}

std::shared_ptr<ScreenSaverView> BackgroundTest::make(bool isPreview)
{
    return MySaver::initWithFrameIsPreview({{0, 0}, screenSize}, isPreview,
                                           {desktop, movies, store, trailers, signs, savers});
}

void BackgroundTest::show(const std::shared_ptr<ScreenSaverView>& view, int screen)
{
    auto* place = desktop.screens().at(screen);
    hostWindow = std::make_unique<Window>(Window::Description{place->frame(), place, "host"});
    hostWindow->setLevel(WindowLevel::ScreenSaver);
    hostWindow->setContentView(view.get());
    hostWindow->orderFront();
    view->startAnimation();
}

MySaver& BackgroundTest::started(int screen)
{
    background = std::dynamic_pointer_cast<FakeBackSaver>(make());
    show(background, screen);
    run(0.11);
    return dynamic_cast<MySaver&>(*windowOfKind("saver", screen)->contentView());
}

void BackgroundTest::run(double seconds)
{
    const double end = clock.now() + seconds - 1e-9;
    while (clock.now() < end) {
        timers.advance(std::min(0.05, end - clock.now()));
        QCoreApplication::processEvents();
    }
}

void BackgroundTest::runSettled(const MySaver& saver, int ticks)
{
    for (int i = 0; i < ticks; ++i) {
        run(0.05);
        EXPECT_TRUE(waitUntil([&] { return !saver.isCapturing(); }));
        QCoreApplication::processEvents();
    }
}

Window* BackgroundTest::windowOfKind(const QString& kind, int screen)
{
    for (auto* window : desktop.screens().at(screen)->windows())
        if (window->kind() == kind) return window;
    return nullptr;
}

QColor BackgroundTest::seen(Point at)
{
    return pixelAt(static_cast<int>(at.x), static_cast<int>(at.y));
}

Point BackgroundTest::middleOf(const Rect& rect)
{
    return {rect.left() + rect.size.width / 2, rect.bottom() + rect.size.height / 2};
}

void BackgroundTest::expectBlueBut(const std::vector<Rect>& covered, const char* when)
{
    for (int x = 3; x < 1920; x += 41)
        for (int y = 5; y < 1080; y += 37) {
            const Rect point{{static_cast<float>(x), static_cast<float>(y)}, {1, 1}};
            const auto covers = [&](const Rect& rect) { return !intersectionRect(rect, point).isEmpty(); };
            if (std::any_of(covered.begin(), covered.end(), covers)) continue;
            ASSERT_EQ(pixelAt(x, y), QColor(Qt::blue)) << when << ": " << x << ' ' << y;
        }
}

} // namespace kestro
