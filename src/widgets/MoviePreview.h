#pragma once

#include "presentation/KTQTMovieView.h"
#include "widgets/WidgetDesktop.h"

#include <QWidget>

#include <memory>
#include <optional>

namespace kestro {

class ControllerBar;
class NSMovie;
class QTMovie;
class SurfaceWidget;
class Timer;
class Window;

/// A movie to be looked at in a window of the desktop: the moving picture, and below it the controller bar of
/// 16 points. Space plays and pauses wherever in it the focus is. Owned as any widget is; must go before what
/// its services are. Main thread; points.
class MoviePreview final : public QWidget {
    Q_OBJECT

public:
    explicit MoviePreview(QWidget* parent = nullptr,
                          const SurfaceServices& services = SurfaceServices::real());
    ~MoviePreview() override;

    /// The height of the bar, which the widget has more than its picture.
    [[nodiscard]] static int controllerHeight();

    /// Whether the picture keeps its movie's shape, with black around it, as it does unless told otherwise;
    /// else it fills the room above the bar, for who gives the widget the movie's shape.
    void setKeepsShape(bool keepsShape);

    /// Shows `movie`, which stands as it is; null shows none. The one before is let go of as it stands.
    void setMovie(std::shared_ptr<QTMovie> movie);
    /// Shows the movie inside `movie`.
    void setMovie(const NSMovie& movie);
    /// Null when there is none.
    [[nodiscard]] const std::shared_ptr<QTMovie>& movie() const { return m_view.movie(); }

    /// Plays on from where it stands; from the beginning when it stands at its end. Nothing without a movie.
    void start();
    /// Stops the movie where it is.
    void stop();
    /// Whether it plays, or will once it is loaded.
    [[nodiscard]] bool isPlaying() const { return isRunning(); }
    /// Of the movie; zero while it is unknown and without a movie.
    [[nodiscard]] Size naturalSize() const { return m_view.sizeForMagnification(1); }

    [[nodiscard]] KTQTMovieView& movieView() { return m_view; }
    [[nodiscard]] SurfaceWidget& surface() { return *m_surface; }
    [[nodiscard]] ControllerBar& controller() { return *m_bar; }

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    /// The natural size of the movie became known.
    void movieLoaded();
    /// The movie that was still loading cannot be shown.
    void movieFailed();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void changeMovie();
    void toggle();
    void seek(int position);
    void refresh();
    void settleLoading();
    void placePicture();
    [[nodiscard]] bool isRunning() const;

    SurfaceServices m_services;
    SurfaceWidget* m_surface; ///< Qt's parent owns both widgets
    ControllerBar* m_bar;
    KTQTMovieView m_view;
    View m_ground; ///< what the movie view lies in
    std::unique_ptr<Window> m_window;
    std::unique_ptr<Timer> m_timer; ///< while there is something to follow
    bool m_keepsShape = true;
    bool m_isWanted = false; ///< to play, once it is loaded
    bool m_isLoading = false;
};

} // namespace kestro
