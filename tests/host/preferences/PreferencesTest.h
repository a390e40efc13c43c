#pragma once

#include "host/FakeDesk.h"
#include "host/preferences/SaverPreview.h"
#include "settings/ConfigurableSaver.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <functional>
#include <gtest/gtest.h>

namespace kestro {

/// A saver with options that only notes what is asked of it, and fills its frame in red.
class OptionSaver final : public ScreenSaverView, public ConfigurableSaver {
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

    [[nodiscard]] Settings& settings() override { qFatal("no settings here"); }
    [[nodiscard]] Playlist& playlist() override { qFatal("no playlist here"); }
    [[nodiscard]] QStringList reloadBackSavers() override { return {}; }
    void applyLoopMode() override {}
    void resetMovie() override {}

    std::function<void()> whileStarting; ///< called when it starts

private:
    QStringList& m_journal;
};

/// Lets events through, children's ends included, until `isSo`; answers whether it came to be.
[[nodiscard]] bool comesTrue(const std::function<bool()>& isSo);

/// Services with a clock turned by hand, and a factory of savers with options.
class PreferencesTest : public testing::Test {
protected:
    [[nodiscard]] SaverPreview::ViewFactory views()
    {
        return [this](const Rect& frame, Desktop&) {
            frames.push_back(frame);
            saver = std::make_shared<OptionSaver>(frame, journal);
            return saver;
        };
    }
    /// A program of this text, for the shell.
    [[nodiscard]] QString program(const QByteArray& text) const;

    ManualClock clock;
    ManualTimerSource timers{clock};
    SeededRandom random{1};
    SurfaceServices services{timers, clock, random};
    QTemporaryDir folder;
    QStringList journal;
    std::vector<Rect> frames;
    std::shared_ptr<OptionSaver> saver;
};

} // namespace kestro
