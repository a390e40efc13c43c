#pragma once

#include "engine/EngineTest.h"
#include "engine/FakeBackSaver.h"
#include "engine/SaverFolders.h"

namespace kestro {

/// Savers above the blue one, FakeBackSaver, as whose host the test acts.
class BackgroundTest : public EngineTest {
protected:
    static constexpr Size screenSize{1920, 1080};

    BackgroundTest();
    ~BackgroundTest() override;

    /// The view that a host gets.
    std::shared_ptr<ScreenSaverView> make(bool isPreview = false);
    /// What a host does with it.
    void show(const std::shared_ptr<ScreenSaverView>& view, int screen = 0);
    /// A saver that runs above the blue one.
    MySaver& started(int screen = 0);
    /// Lets time pass, tick by tick.
    void run(double seconds);
    /// The same, with each still of the trail waited for.
    void runSettled(const MySaver& saver, int ticks);
    Window* windowOfKind(const QString& kind, int screen = 0);
    QColor seen(Point at);
    static Point middleOf(const Rect& rect);
    /// The background is to be seen, untouched, everywhere but in `covered`.
    void expectBlueBut(const std::vector<Rect>& covered, const char* when);

    SaverFolders folders;
    BackSaverHost savers{folders.home()};
    std::shared_ptr<FakeBackSaver> background;
    std::unique_ptr<Window> hostWindow;
};

} // namespace kestro
