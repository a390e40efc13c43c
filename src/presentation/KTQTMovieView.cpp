#include "presentation/KTQTMovieView.h"

#include "platform/movie/NSMovie.h"
#include "platform/movie/QTMovie.h"
#include "presentation/MovieFrame.h"

namespace kestro {

void KTQTMovieView::setMovie(std::shared_ptr<QTMovie> movie)
{
    m_resetFlag = true;
    QTMovieView::setMovie(std::move(movie));
}

void KTQTMovieView::setMovie(const NSMovie& movie)
{
    setMovie(movie.movie());
}

void KTQTMovieView::setLoopMode(int mode)
{
    if (auto* older = asNSMovieView()) return older->setLoopMode(mode);
    if (!movie()) return;
    switch (mode) {
    case LoopMode::Looping:
        movie()->setAttribute(MovieAttribute::Loops, true);
        break;
    case LoopMode::BackAndForth:
        movie()->setAttribute(MovieAttribute::LoopsBackAndForth, true);
        break;
    default:
        movie()->setAttribute(MovieAttribute::Loops, false);
        movie()->setAttribute(MovieAttribute::LoopsBackAndForth, false);
    }
}

void KTQTMovieView::showControllerAdjustingSize(bool show, bool adjustSize)
{
    if (auto* older = asNSMovieView()) return older->showControllerAdjustingSize(show, adjustSize);
    setControllerVisible(false);
}

void KTQTMovieView::setMuted(bool muted)
{
    if (movie()) movie()->setMuted(muted);
}

bool KTQTMovieView::isMuted() const
{
    return movie() && movie()->isMuted();
}

void KTQTMovieView::setVolume(float volume)
{
    if (movie()) movie()->setVolume(volume);
}

float KTQTMovieView::volume() const
{
    return movie() ? movie()->volume() : 0.0F;
}

bool KTQTMovieView::isPlaying() const
{
    if (const auto* older = asNSMovieView()) return older->isPlaying();
    return m_resetFlag || (movie() && movie()->rate() != 0.0F);
}

void KTQTMovieView::keepPlaying()
{
    if (asNSMovieView()) return;
    noteRate();
    if (!m_resetFlag || !movie() || movie()->duration().timeValue <= 0) return;
    start(this);
    noteRate(); // one that is shorter than the time between two calls is seen as well
}

void KTQTMovieView::noteRate()
{
    if (movie() && movie()->rate() != 0.0F) m_resetFlag = false;
}

Size KTQTMovieView::sizeForMagnification(float magnification) const
{
    if (const auto* older = asNSMovieView()) return older->sizeForMagnification(magnification);
    return movie() ? movie()->naturalSize() : Size{};
}

} // namespace kestro
