#pragma once

#include "platform/display/view/Window.h"
#include "presentation/KTMovieView.h"

namespace kestro {

/// A movie in a transparent window of its own above everything else on its screen. It only carries a movie
/// view and hands every playback operation on to it. Owned by the engine. Main thread.
class KTMovieWindow final : public Window, public MovieFrame {
public:
    /// `rect` is in the coordinates of `screen` (origin at its lower left corner). Unseen until ordered
    /// front.
    KTMovieWindow(const Rect& rect, Screen& screen, const MovieFramePlatform& platform);
    ~KTMovieWindow() override;

    void setMovie(const MovieContent& content) override { m_movieView.setMovie(content); }
    [[nodiscard]] std::shared_ptr<QTMovie> movie() const override { return m_movieView.movie(); }
    [[nodiscard]] Rect movieRect() const override { return m_movieView.movieRect(); }
    void start(const void* sender) override { m_movieView.start(sender); }
    void stop(const void* sender) override { m_movieView.stop(sender); }
    void letGo() override { m_movieView.letGo(); }
    [[nodiscard]] Picture picture(Size size, double pixelRatio) const override
    {
        return m_movieView.picture(size, pixelRatio);
    }
    [[nodiscard]] bool isPlaying() const override { return m_movieView.isPlaying(); }
    void keepPlaying() override { m_movieView.keepPlaying(); }
    void setVolume(float volume) override { m_movieView.setVolume(volume); }
    [[nodiscard]] float volume() const override { return m_movieView.volume(); }
    void setMuted(bool muted) override { m_movieView.setMuted(muted); }
    [[nodiscard]] bool isMuted() const override { return m_movieView.isMuted(); }
    void setLoopMode(int mode) override { m_movieView.setLoopMode(mode); }
    void showControllerAdjustingSize(bool show, bool adjustSize) override
    {
        m_movieView.showControllerAdjustingSize(show, adjustSize);
    }
    [[nodiscard]] Size sizeWithScale(float scale) const override { return m_movieView.sizeWithScale(scale); }

    void show(View& saver) override;
    void hide() override { orderOut(); }
    void place(const Rect& rect) override { setFrameDisplay(rect, true); }
    [[nodiscard]] Rect covered() const override;
    [[nodiscard]] Rect frame() const override { return Window::frame(); }
    void setFrameOrigin(Point origin) override { Window::setFrameOrigin(origin); }
    /// Screen coordinates; the movie view fills the window again.
    void setFrameDisplay(const Rect& frame, bool display) override;

private:
    KTMovieView m_movieView;
};

} // namespace kestro
