#pragma once

#include "platform/display/view/Geometry.h"

#include <QWidget>

class QUrl;

namespace kestro {

class MovieLibrary;
class MoviePreview;
struct SurfaceServices;

/// The window that plays one trailer, fitted into it with its controller bar. Its owner keeps it, hidden when
/// it is closed. Movies come from a library that must outlive it. Main thread; points.
class PreviewWindow final : public QWidget {
    Q_OBJECT

public:
    PreviewWindow(MovieLibrary& movies, const SurfaceServices& services);
    ~PreviewWindow() override;

    /// Opens the movie at `url`, shows and plays it at its natural size. Answers whether there is such a
    /// movie; without one no movie is shown, and the window stays as it is.
    [[nodiscard]] bool preview(const QUrl& url);

    [[nodiscard]] MoviePreview& qtViewer() { return *m_qtViewer; }

Q_SIGNALS:
    /// The movie that began to load turned out to be none; it is not shown any more.
    void movieFailed();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void takeNaturalSize();
    [[nodiscard]] Size shownSize() const;
    void frameChanged();
    void giveUp();

    MovieLibrary& m_movies;
    MoviePreview* m_qtViewer; ///< Qt's parent owns it
};

} // namespace kestro
