#include "platform/movie/QTMovieView.h"

#include "platform/movie/QTMovie.h"

#include <utility>

namespace kestro {

QTMovieView::QTMovieView(const Rect& frame, std::unique_ptr<NSMovieView> older)
    : View(frame)
    , m_older(std::move(older))
{
}

QTMovieView::~QTMovieView()
{
    setLayer(nullptr); // the layer goes with the movie, before the view's base does
}

void QTMovieView::setMovie(std::shared_ptr<QTMovie> movie)
{
    setLayer(movie ? &movie->layer() : nullptr);
    m_movie = std::move(movie);
}

void QTMovieView::play(const void*)
{
    if (m_movie) m_movie->play();
}

void QTMovieView::pause(const void*)
{
    if (m_movie) m_movie->stop();
}

} // namespace kestro
