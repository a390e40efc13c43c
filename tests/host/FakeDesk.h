#pragma once

#include "host/session/HostedSaver.h"
#include "host/session/SaverSession.h"
#include "platform/base/Clock.h"
#include "platform/base/Random.h"
#include "platform/display/desktop/ImageDesktop.h"
#include "platform/display/desktop/ManualTimerSource.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/surface/image/ImageSurface.h"
#include "platform/saver/SaverControl.h"
#include "platform/saver/ScreenSaverView.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

namespace kestro {

/// A saver that notes what its host asks of it, and does what a test wants of it meanwhile.
class FakeSaver final : public ScreenSaverView, public SaverControl {
public:
    FakeSaver(const Rect& viewFrame, QString name, QStringList& journal)
        : ScreenSaverView(viewFrame, false)
        , m_name(std::move(name))
        , m_journal(journal)
    {
        setAnimationTimeInterval(0.1);
    }

    void startAnimation() override
    {
        act(QStringLiteral("start"), onStart);
        ScreenSaverView::startAnimation();
    }
    void stopAnimation() override
    {
        act(QStringLiteral("stop"), {});
        ScreenSaverView::stopAnimation();
    }
    void animateOneFrame() override { act(QStringLiteral("tick"), onTick); }
    void setFrameSize(Size size) override
    {
        ScreenSaverView::setFrameSize(size);
        if (onFit) onFit();
    }
    void rest(Rest how) override { m_journal.append(m_name + QStringLiteral(" rest %1").arg(int(how))); }
    void changeMovie(MovieStep step) override
    {
        m_journal.append(m_name +
                         (step == MovieStep::Next ? QStringLiteral(" next") : QStringLiteral(" previous")));
    }
    void act(SaverAct what) override
    {
        static const QStringList names{"title", "louder", "quieter", "never", "back"};
        m_journal.append(m_name + u' ' + names.at(static_cast<int>(what)));
    }
    [[nodiscard]] SaverSnapshot snapshot() const override { return shown; }

    std::function<void()> onFit;
    std::function<void()> onStart;
    std::function<void()> onTick;
    SaverSnapshot shown;

private:
    void act(const QString& what, const std::function<void()>& then)
    {
        m_journal.append(m_name + u' ' + what);
        if (then) then();
        m_journal.append(m_name + u' ' + what + QStringLiteral(" done"));
    }

    QString m_name;
    QStringList& m_journal;
};

/// Two screens side by side, in memory, under a clock that is turned by hand, and savers named a, b, c … in
/// the order in which they are made.
class FakeDesk {
public:
    static constexpr Rect left{{0, 0}, {64, 48}};
    static constexpr Rect right{{64, 0}, {32, 48}};

    /// A factory that notes each view before the session gets it.
    [[nodiscard]] SaverSession::ViewFactory factory()
    {
        return [this](const Rect& frame) {
            const QChar name(u'a' + static_cast<int>(savers.size()));
            savers.push_back(std::make_shared<FakeSaver>(frame, name, journal));
            if (onMake) onMake(*savers.back());
            return savers.back();
        };
    }

    [[nodiscard]] Screen& screen(std::size_t index) { return *desktop.screens().at(index); }
    [[nodiscard]] int count(const QString& what) const { return static_cast<int>(journal.count(what)); }

    ManualClock clock;
    ManualTimerSource timers{clock};
    SeededRandom random{1};
    ImageDesktop desktop{{left, right}, 1, timers, clock, random};
    QStringList journal;
    std::vector<std::shared_ptr<FakeSaver>> savers;
    std::function<void(FakeSaver&)> onMake;
};

} // namespace kestro
