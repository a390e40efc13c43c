#pragma once

#include "platform/display/view/View.h"
#include "presentation/MovieFrame.h"

#include <memory>

namespace kestro {

class Desktop;
class KTQTMovieView;
class WebEngine;
class WebView;

/// What a movie frame needs of the platform. Both outlive it.
struct MovieFramePlatform {
    Desktop& desktop;
    WebEngine* webEngine = nullptr; ///< null: web content shows nothing
};

/// Shows one piece of content, a movie or a web page, in a view. It keeps the playback settings itself, so
/// that they may be given before there is content and hold for whatever content comes next. While one movie
/// takes over from another, the last picture of the one stands until the first of the other is there. Owned
/// by the engine, or by the window it fills. Main thread.
class KTMovieView final : public View, public MovieFrame {
public:
    KTMovieView(const Rect& frame, const MovieFramePlatform& platform);
    ~KTMovieView() override;

    void setMovie(const MovieContent& content) override;
    [[nodiscard]] std::shared_ptr<QTMovie> movie() const override;
    [[nodiscard]] Rect movieRect() const override;
    void start(const void* sender) override;
    void stop(const void* sender) override;
    void letGo() override;
    [[nodiscard]] Picture picture(Size size, double pixelRatio) const override;
    [[nodiscard]] bool isPlaying() const override;
    void keepPlaying() override;
    void setVolume(float volume) override;
    [[nodiscard]] float volume() const override;
    void setMuted(bool muted) override;
    [[nodiscard]] bool isMuted() const override;
    void setLoopMode(int mode) override;
    void showControllerAdjustingSize(bool show, bool adjustSize) override;
    [[nodiscard]] Size sizeWithScale(float scale) const override;
    void show(View& saver) override { saver.addSubview(*this); }
    void hide() override { removeFromSuperview(); }
    void place(const Rect& rect) override { setFrame(rect); }
    [[nodiscard]] Rect covered() const override { return {}; }
    [[nodiscard]] Rect frame() const override { return View::frame(); }

    void setFrame(const Rect& frame) override;
    void setFrameOrigin(Point origin) override { View::setFrameOrigin(origin); }
    void setFrameSize(Size size) override;
    void drawRect(Painter& painter, const Rect& rect) override;

private:
    [[nodiscard]] KTQTMovieView* innerMovieView() const;
    [[nodiscard]] WebView* innerWebView() const;
    void removeContent();
    void showMovie(const std::shared_ptr<QTMovie>& movie);
    void showWebContent(const QUrl& url);

    MovieFramePlatform m_platform;
    std::unique_ptr<View> m_movieView; ///< the inner view, null while empty
    QUrl m_page;                       ///< the web content that was shown last
    QUrl m_pageLetGo;                  ///< web content to begin anew; empty for none
    float m_volume = 0;
    bool m_mute = false;
    int m_loopMode = LoopMode::Normal;
    bool m_showController = false;
    bool m_adjustSize = false;
};

} // namespace kestro
