// How the saver looks for the next movie, a step at a time, and what it does with what it finds.
// Tested by MySaverFailuresTest and MySaverAheadTest.

#include "engine/AheadFetch.h"
#include "engine/MySaver.h"
#include "platform/base/Clock.h"
#include "platform/display/desktop/Desktop.h"
#include "platform/display/view/Layer.h"
#include "platform/movie/QTMovie.h"
#include "presentation/MovieFrame.h"

#include <utility>

namespace kestro {

using Purpose = MovieSearch::Purpose;

namespace {

QUrl addressOf(const MovieContent& content)
{
    const auto* const movie = std::get_if<std::shared_ptr<QTMovie>>(&content);
    return movie ? (*movie)->url() : std::get<QUrl>(content);
}

} // namespace

void MySaver::beginSearch(Purpose purpose)
{
    auto& entries = m_sequencer.entries();
    const bool isStart = purpose == Purpose::Start || purpose == Purpose::Restart;
    if (isStart) {
        entries.forgetFailures();
        m_steps.giveUp();
    }
    if (purpose == Purpose::Retry) entries.beginRetry();
    m_search = std::make_unique<MovieSearch>(
        purpose, m_services.desktop.clock().now(),
        isStart ? [this] { return playableSearch(); } : MovieSearch::MakeFirst(),
        [this](int index) { m_playlist.setCurIdx(index); }, [this, purpose] { return newPick(purpose); });
    advanceSearch();
}

std::unique_ptr<PlayableSearch> MySaver::playableSearch()
{
    takeNews();
    return std::make_unique<PlayableSearch>(m_playlist.fileList(), [this] { advanceSearch(); });
}

// While the sign shows it stays until a movie is there to take its place.
std::unique_ptr<MoviePick> MySaver::newPick(Purpose purpose)
{
    const MoviePick::Options options{.waitsForServers = purpose == Purpose::Retry,
                                     .wake = [this] { advanceSearch(); }};
    if (purpose == Purpose::Previous) return m_sequencer.previousMovie(m_steps, options);
    const int played = m_played.value_or(m_playlist.curIdx());
    return m_sequencer.newNextMovie(m_saverInited ? std::optional(played) : std::nullopt,
                                    m_resumePoint.movieName(), options);
}

void MySaver::advanceSearch()
{
    if (!m_search || isHeldUp()) return;
    if (m_playlist.folders().isWaiting() && m_search->mayWait(m_services.desktop.clock().now())) return;
    const auto state = m_search->step();
    if (state == MoviePick::State::Searching) return;
    const auto search = std::move(m_search);
    const MovieContent content = search->takeContent();
    if (state != MoviePick::State::Found || !_resetMovie(content)) return foundNothing(search->purpose());
    m_steps.shows(addressOf(content));
    m_acts.showMovie(m_steps.now());
    found(search->purpose());
    if (m_services.ahead) m_services.ahead->plays(addressOf(content), m_playlist);
}

void MySaver::found(Purpose purpose)
{
    m_saverInited = true;
    setAnimationTimeInterval(movieInterval);
    if (purpose == Purpose::Next || purpose == Purpose::Previous || purpose == Purpose::Replace)
        loopWhatIsAlone();
    else
        beginAnew();
    if (isAnimating()) startMovie();
}

// Nothing played before this movie.
void MySaver::beginAnew()
{
    m_played.reset();
    if (m_flyTime) m_flyTime = m_services.desktop.clock().now();
}

void MySaver::foundNothing(Purpose purpose)
{
    m_saverInited = true;
    m_steps.giveUp();
    switch (purpose) {
    case Purpose::Next:
        loopWhatIsAlone();
        return startMovie();
    case Purpose::Previous:
        return startMovie();
    case Purpose::Start:
        dropMovieFrame();
        if (!m_sign.isShown()) showSign(signForStart());
        break;
    case Purpose::Restart:
        fallBackToSign(m_services.signs.previewImage());
        break;
    case Purpose::Replace:
        fallBackToSign(signForStart());
        break;
    case Purpose::Retry:
        break;
    }
    if (m_playlist.plistFileList().isEmpty()) return;
    m_retries.failed(m_services.desktop.clock().now(), m_playlist.fileList().size());
}

// Where the entry that ended is taken again, past others that failed, it is the only one that can be played.
void MySaver::loopWhatIsAlone()
{
    if (m_played != m_playlist.curIdx() || m_playlist.hasAutoTrailers()) return;
    const auto mode = m_settings.loopMode(1);
    if (!mode) return;
    m_movieView->setLoopMode(*mode);
    m_endOfLoneLoop = m_sequencer.nextLook();
}

// It plays to its end, and then the entries that were passed over are tried.
void MySaver::endLoneLoopInTime()
{
    const double now = m_services.desktop.clock().now();
    if (!m_endOfLoneLoop || now < *m_endOfLoneLoop) return;
    const auto endOfRests = m_sequencer.entries().endOfRests();
    const bool areOthersRested = endOfRests && now >= *endOfRests;
    m_endOfLoneLoop.reset();
    if (areOthersRested || m_sequencer.isTimeForOthers())
        applyLoopMode();
    else
        m_endOfLoneLoop = m_sequencer.nextLook();
}

// Folders hold something else. A movie that was alone, or is from now on, loops no more, or begins to.
bool MySaver::takeNews()
{
    const auto before = m_playlist.takeNews();
    if (!before) return false;
    m_sequencer.takeNews(*before);
    m_played.reset();
    applyLoopMode();
    return true;
}

// The list is built anew where it may hold something else by now.
void MySaver::retry()
{
    if (m_playlist.hasAutoTrailers() || m_playlist.fileList().isEmpty()) m_playlist.dropFileList();
    beginSearch(Purpose::Retry);
}

// A movie that was opened, but broke off later, counts as ended and as one that could not be opened.
bool MySaver::replaceBrokenMovie()
{
    const auto movie = m_movieView->movie();
    if (!movie || movie->layer().hasFrame()) m_retries.end();
    if (!movie || movie->state() == QTMovie::State::Loading) return false;
    if (movie->state() == QTMovie::State::Loaded) {
        m_played.reset();
        placeInTime(*movie);
        return false;
    }
    m_sequencer.entries().recordLateFailure(movie->url());
    beginSearch(Purpose::Replace);
    return true;
}

void MySaver::startMovie()
{
    m_rest.goesOn = true;
    if (m_movieView && m_rest.how == Rest::None) m_movieView->start(this);
}

} // namespace kestro
