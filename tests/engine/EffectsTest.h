#pragma once

#include "engine/EngineTest.h"
#include "engine/HeldStills.h"

#include <QCoreApplication>

namespace kestro {

/// A saver whose movies move and leave pictures behind.
class EffectsTest : public EngineTest {
protected:
    EffectsTest()
    {
        set("FullScreenMode", "0");
        set("Fadeout", "1");
        set("Scale", "0.5");
    }
    void setMode(const char* partial) { set("PartialMode", partial); }
    const Window* windowOfKind(const QString& kind)
    {
        for (const auto* window : desktop.mainScreen()->windows())
            if (window->kind() == kind) return window;
        return nullptr;
    }
    MySaver& started(bool isPreview = false)
    {
        auto& saver = makeSaver(isPreview);
        saver.startAnimation();
        return saver;
    }
    /// One tick, with the capture that it may have begun brought to its end.
    void tickAndSettle(MySaver& saver)
    {
        tick(saver);
        EXPECT_TRUE(waitUntil([&] { return !saver.isCapturing(); }));
        QCoreApplication::processEvents();
    }
    void settledFor(MySaver& saver, double seconds)
    {
        const double end = clock.now() + seconds - 1e-9;
        while (clock.now() < end)
            tickAndSettle(saver);
    }
    /// A playlist of movies that open, of `seconds` each, whose stills are taken so.
    void setPlaylistWith(HeldStills& stills, const QStringList& names, double seconds)
    {
        setPlaylist(names);
        const auto take = [stills](MovieTime time, const std::stop_token& stop) {
            return stills.take(time, stop);
        };
        for (const auto& name : names)
            describe(name, {.seconds = seconds, .colour = Qt::white, .takesStill = take});
    }
    [[nodiscard]] bool hasPictureLeft() { return windowOfKind("fade")->frame() != Rect{{0, 0}, {1, 1}}; }
    [[nodiscard]] int missing() const { return logged("movie doesn't have a image."); }
};

} // namespace kestro
