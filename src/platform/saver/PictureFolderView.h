#pragma once

#include "platform/saver/PictureLoader.h"
#include "platform/saver/PictureOrder.h"
#include "platform/saver/ScreenSaverView.h"

#include <QImage>
#include <QSet>

#include <memory>
#include <optional>

namespace kestro {

class Clock;
class Desktop;
class Timer;
class TimerSource;

/// The screen saver that shows the pictures of a folder, one after the other, each fitted into the view; one
/// fades into the next. Pictures are read aside, one ahead of the one that is seen. Each round lists the
/// folder anew. Without a picture to show the view is black, and looks again later. Main thread.
class PictureFolderView final : public ScreenSaverView {
public:
    PictureFolderView(const Rect& frame, bool isPreview, QString folder, Desktop& desktop);
    ~PictureFolderView() override;

    /// Seconds that one picture takes to replace another, that it stands after, and from one look at a folder
    /// without pictures to the next.
    static constexpr double fadeSeconds = 1;
    static constexpr double standSeconds = 5;
    static constexpr double emptySeconds = 10;

    void startAnimation() override;
    void stopAnimation() override;
    void drawRect(Painter& painter, const Rect& rect) override;

private:
    struct Shown {
        QString path;
        QSize room; ///< that it was fitted into, pixels
        QImage image;
    };

    void prepareNext();
    void listed(const QStringList& pictures);
    void read(const QString& path, QSize room, const Result<QImage>& image);
    void complainOnce(const QString& subject, const QString& line);
    void goBlack();
    void isDue();
    void beginFade();
    void fadeOn();
    void after(double seconds, void (PictureFolderView::*action)());
    [[nodiscard]] double faded() const;
    [[nodiscard]] QSize room() const;

    const QString m_folder;
    const Clock& m_clock;
    TimerSource& m_timers;
    PictureOrder m_order;
    PictureLoader m_loader;
    Shown m_current;
    QImage m_previous;                 ///< while it fades away
    std::optional<Shown> m_next;       ///< ready to be shown
    std::optional<double> m_fadeBegan; ///< seconds; nothing when no fade is under way
    std::unique_ptr<Timer> m_timer;    ///< of the fade, the standing picture or the next look
    bool m_isDue = true;               ///< the next picture is to be shown as soon as there is one
    bool m_isFirstRound = true;
    bool m_roundShowed = false; ///< there was something to show in this round
    QSet<QString> m_complained; ///< what there was a line about
};

} // namespace kestro
