#pragma once

#include "host/FakeDesk.h"
#include "host/preferences/live/SaverPreview.h"
#include "platform/movie/MemoryMovie.h"
#include "settings/ConfigurableSaver.h"

#include <gtest/gtest.h>

namespace kestro {

/// A saver with options that only notes what is asked of it, and fills its frame in red.
class OptionSaver final : public ScreenSaverView, public SaverControl, public ConfigurableSaver {
public:
    OptionSaver(const Rect& viewFrame, QStringList& journal)
        : ScreenSaverView(viewFrame, true)
        , m_journal(journal)
    {
        setAnimationTimeInterval(0.1);
    }

    void startAnimation() override
    {
        m_journal.append(QStringLiteral("start"));
        if (whileStarting) whileStarting();
        ScreenSaverView::startAnimation();
    }
    void stopAnimation() override
    {
        m_journal.append(QStringLiteral("stop"));
        ScreenSaverView::stopAnimation();
    }
    void animateOneFrame() override { m_journal.append(QStringLiteral("tick")); }
    void drawRect(Painter& painter, const Rect& rect) override;

    void rest(Rest how) override
    {
        m_journal.append(how == Rest::None ? QStringLiteral("go on")
                                           : QStringLiteral("rest %1").arg(int(how)));
    }
    [[nodiscard]] ConfigurableSaver* options() override { return this; }

    [[nodiscard]] Settings& settings() override { qFatal("no settings here"); }
    [[nodiscard]] Playlist& playlist() override { qFatal("no playlist here"); }
    [[nodiscard]] MovieLibrary& movies() override { return m_movies; }
    [[nodiscard]] QStringList reloadBackSavers() override { return backSavers; }
    void applyLoopMode() override {}
    void resetMovie() override {}

    QStringList backSavers;              ///< what may run behind
    std::function<void()> whileStarting; ///< called when it starts

private:
    QStringList& m_journal;
    ManualClock m_clock;
    MemoryMovieLibrary m_movies{m_clock};
};

/// Services with a clock turned by hand, and a factory of savers with options.
class LiveTest : public testing::Test {
protected:
    [[nodiscard]] SaverPreview::ViewFactory views()
    {
        return [this](const Rect& frame, Desktop&) {
            frames.push_back(frame);
            saver = std::make_shared<OptionSaver>(frame, journal);
            return saver;
        };
    }

    ManualClock clock;
    ManualTimerSource timers{clock};
    SeededRandom random{1};
    SurfaceServices services{timers, clock, random};
    QStringList journal;
    std::vector<Rect> frames;
    std::shared_ptr<OptionSaver> saver;
};

} // namespace kestro
