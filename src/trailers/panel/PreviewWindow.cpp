#include "trailers/panel/PreviewWindow.h"

#include "platform/base/URLKind.h"
#include "platform/movie/MovieLibrary.h"
#include "platform/movie/NSMovie.h"
#include "platform/movie/QTMovie.h"
#include "trailers/panel/MovieFit.h"
#include "widgets/ControllerBar.h"
#include "widgets/MoviePreview.h"
#include "widgets/WindowPlace.h"

#include <QGuiApplication>
#include <QScreen>
#include <QShortcut>
#include <QUrl>

namespace kestro {

namespace {

static_assert(controllerBarHeight == ControllerBar::barHeight);

// For a movie whose size is not known yet.
constexpr Size firstSize{480, 270};

Size sizeOf(const QWidget& widget)
{
    return {static_cast<float>(widget.width()), static_cast<float>(widget.height())};
}

QSize wholePoints(Size size)
{
    return QSizeF(size.width, size.height).toSize();
}

} // namespace

PreviewWindow::PreviewWindow(MovieLibrary& movies, const SurfaceServices& services)
    : QWidget(nullptr, Qt::Window)
    , m_movies(movies)
    , m_qtViewer(new MoviePreview(this, services))
{
    new WindowPlace(*this);
    m_qtViewer->setKeepsShape(false); // it gets the movie's shape
    connect(m_qtViewer, &MoviePreview::movieLoaded, this, &PreviewWindow::takeNaturalSize);
    connect(m_qtViewer, &MoviePreview::movieFailed, this, &PreviewWindow::giveUp, Qt::QueuedConnection);
    for (const QKeySequence& key : {QKeySequence(QKeySequence::Close), QKeySequence(Qt::Key_Escape)})
        connect(new QShortcut(key, this), &QShortcut::activated, this, &QWidget::close);
    resize(wholePoints(naturalContainerSize(firstSize)));
    m_qtViewer->setGeometry(rect());
    move(QGuiApplication::primaryScreen()->geometry().topLeft());
}

PreviewWindow::~PreviewWindow() = default;

bool PreviewWindow::preview(const QUrl& url)
{
    const QString title = lastPathComponent(url);
    const NSMovie movie(m_movies.movieWithURL(url));
    if (m_qtViewer->isPlaying()) m_qtViewer->stop();
    if (!movie.movie()) {
        m_qtViewer->setMovie(nullptr);
        return false;
    }
    show();
    raise();
    activateWindow();
    m_qtViewer->setMovie(movie);
    setWindowTitle(title.isEmpty() ? tr("Movie Trailer") : title);
    m_qtViewer->start();
    m_qtViewer->setFocus();
    takeNaturalSize();
    return true;
}

void PreviewWindow::takeNaturalSize()
{
    const Size natural = m_qtViewer->naturalSize();
    if (natural.isEmpty()) return frameChanged();
    const QSize largest = screen()->availableSize() - (frameSize() - size());
    resize(wholePoints(naturalContainerSize(natural)).boundedTo(largest));
    frameChanged();
}

// A movie that is still loading stands as if it had the usual shape, so that its bar is at the bottom.
Size PreviewWindow::shownSize() const
{
    const bool isLoading = m_qtViewer->movie()->state() == QTMovie::State::Loading;
    return isLoading ? firstSize : m_qtViewer->naturalSize();
}

void PreviewWindow::frameChanged()
{
    if (!m_qtViewer->movie()) return;
    const Rect place = fittedMovieFrame(sizeOf(*this), shownSize());
    m_qtViewer->setGeometry(
        QRectF(place.origin.x, place.origin.y, place.size.width, place.size.height).toRect());
}

void PreviewWindow::giveUp()
{
    const auto movie = m_qtViewer->movie();
    if (!movie || movie->state() != QTMovie::State::Failed) return; // another one was chosen meanwhile
    m_qtViewer->setMovie(nullptr);
    if (isVisible()) Q_EMIT movieFailed();
}

void PreviewWindow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    frameChanged();
}

void PreviewWindow::closeEvent(QCloseEvent* event)
{
    m_qtViewer->stop();
    QWidget::closeEvent(event);
}

} // namespace kestro
