#include "platform/movie/MpvMovie.h"

#include "platform/movie/DecoderMemory.h"
#include "platform/movie/DecoderThreads.h"
#include "platform/movie/MpvMovieLayer.h"
#include "platform/movie/MpvStills.h"
#include "platform/movie/ShownFrame.h"

#include <QThread>

#include <algorithm>
#include <concepts>

namespace kestro {

// The last frame of a movie begins this much before its end, at most.
static constexpr double longestPicture = 0.5;

MpvMovie::MpvMovie(const QUrl& url, const MpvMovieOptions& options)
    : m_url(url)
    , m_source(url)
    , m_options(options)
    , m_layer(std::make_unique<PlayerLayer>(*this))
    , m_shown(std::make_shared<ShownFrame>())
{
    if (m_url.isLocalFile())
        open();
    else if (!openKept())
        static_cast<void>(start(0));
}

MpvMovie::~MpvMovie() = default;

static int threadsFor(const std::optional<MovieFacts>& facts)
{
    const int cores = QThread::idealThreadCount();
    return facts ? decoderThreads(*facts, cores) : decoderThreadsOfUnknown(cores);
}

/// Takes a player, which stands there. False, broken, when there is none to be had.
bool MpvMovie::start(double at)
{
    auto player = MpvPlayer::start({.url = m_source,
                                    .options = m_options,
                                    .start = at,
                                    .frameSeconds = m_facts ? m_facts->frameSeconds : 0,
                                    .rotation = m_facts ? m_facts->rotation : 0,
                                    .decoderThreads = threadsFor(m_facts),
                                    .mostFramePixels = mostFramePixels(m_facts.value_or(MovieFacts())),
                                    .muted = m_muted,
                                    .volume = m_volume,
                                    .openGL = m_options.openGL.lock(),
                                    .shown = m_shown},
                                   *this);
    if (!player) {
        m_state = Broken{.at = at};
        return false;
    }
    m_state = Standing{{.player = std::move(player)}};
    applyEndMode();
    return true;
}

MpvPlayer* MpvMovie::player() const
{
    return std::visit(
        [](const auto& state) -> MpvPlayer* {
            if constexpr (requires { state.player; }) return state.player.get();
            return nullptr;
        },
        m_state);
}

MpvMovie::Started* MpvMovie::started()
{
    return std::visit(
        []<typename Current>(Current& state) -> Started* {
            if constexpr (std::derived_from<Current, Started>) return &state;
            return nullptr;
        },
        m_state);
}

/// From one of those that have a player to another.
template <typename Next>
void MpvMovie::become()
{
    Started kept = std::move(*started());
    m_state = Next{std::move(kept)};
}

/// Posted, so that what is set right after the movie is put on show (its position) is known when the player
/// starts.
void MpvMovie::beShown()
{
    if (auto* const opening = std::get_if<Opening>(&m_state)) opening->isShown = true;
    const bool isContextLost = started() && player()->isContextLost();
    if (!isContextLost && !std::holds_alternative<Lying>(m_state)) return;
    QMetaObject::invokeMethod(
        &m_context, [this] { takePlayerForShow(); }, Qt::QueuedConnection);
}

void MpvMovie::takePlayerForShow()
{
    if (const auto* const lying = std::get_if<Lying>(&m_state)) static_cast<void>(start(lying->at));
    if (started() && player()->isContextLost()) replacePlayer();
}

/// One that draws in software goes on from where the other was.
void MpvMovie::replacePlayer()
{
    const bool isPlaying = std::holds_alternative<Playing>(m_state);
    const bool hasEnded = std::holds_alternative<Ended>(m_state);
    const bool backwards = isBackwards();
    if (!start(player()->position())) return;
    started()->backwards = backwards;
    if (hasEnded) become<Ended>();
    if (isPlaying) become<Playing>();
    player()->setPaused(backwards || !isPlaying);
}

QTMovie::State MpvMovie::state() const
{
    if (std::holds_alternative<Broken>(m_state)) return State::Failed;
    return m_facts || m_known || (player() && player()->isLoaded()) ? State::Loaded : State::Loading;
}

Size MpvMovie::naturalSize() const
{
    if (m_facts) return m_facts->naturalSize();
    if (player() && player()->isLoaded()) return player()->naturalSize();
    return m_known.value_or(Known()).naturalSize;
}

double MpvMovie::knownSeconds() const
{
    if (m_facts) return m_facts->seconds;
    if (player() && player()->isLoaded()) return player()->duration();
    return m_known.value_or(Known()).seconds;
}

MovieTime MpvMovie::duration() const
{
    return movieTimeFromSeconds(knownSeconds());
}

double MpvMovie::position() const
{
    if (const auto* const ended = std::get_if<Ended>(&m_state)) return endPosition(*ended);
    if (isBackwards()) return m_back->position();
    return std::visit(
        [](const auto& state) {
            if constexpr (requires { state.at; })
                return state.at;
            else
                return state.player->position();
        },
        m_state);
}

double MpvMovie::endPosition(const Ended& ended) const
{
    if (ended.backwards) return 0;
    const double here = ended.player->position();
    return here >= knownSeconds() - longestPicture ? knownSeconds() : here;
}

MovieTime MpvMovie::currentTime() const
{
    MovieTime time = movieTimeFromSeconds(position());
    if (knownSeconds() > 0) time.timeValue = std::min(time.timeValue, duration().timeValue);
    return time;
}

/// The end that it is going to.
bool MpvMovie::isAtEnd(double seconds) const
{
    if (isBackwards()) return seconds <= 0;
    return m_facts && m_facts->seconds > 0 && seconds >= m_facts->seconds;
}

void MpvMovie::setCurrentTime(MovieTime time)
{
    const double wanted = std::max(0.0, secondsFromMovieTime(time));
    const double seconds = knownSeconds() > 0 ? std::min(wanted, knownSeconds()) : wanted;
    if (auto* const opening = std::get_if<Opening>(&m_state)) opening->at = seconds;
    if (auto* const lying = std::get_if<Lying>(&m_state)) lying->at = seconds;
    if (!started()) return;
    seek(seconds);
    if (std::holds_alternative<Playing>(m_state)) return;
    if (isAtEnd(seconds))
        become<Ended>();
    else
        become<Standing>();
}

float MpvMovie::rate() const
{
    const auto* const playing = std::get_if<Playing>(&m_state);
    if (!playing || state() != State::Loaded) return 0;
    return playing->backwards ? -1.0F : 1.0F;
}

void MpvMovie::play()
{
    if (auto* const opening = std::get_if<Opening>(&m_state)) opening->plays = true;
    if (const auto* const lying = std::get_if<Lying>(&m_state)) {
        const double at = lying->at;
        if (!start(at)) return;
        if (isAtEnd(at)) become<Ended>();
    }
    if (std::holds_alternative<Ended>(m_state)) playFromEnd();
    if (!std::holds_alternative<Standing>(m_state)) return;
    become<Playing>();
    setGoing(true);
}

void MpvMovie::stop()
{
    if (auto* const opening = std::get_if<Opening>(&m_state)) opening->plays = false;
    if (!std::holds_alternative<Playing>(m_state)) return;
    become<Standing>();
    setGoing(false);
}

void MpvMovie::letGo()
{
    stop();
    if (auto* const opening = std::get_if<Opening>(&m_state)) opening->isShown = false;
    if (!started()) return;
    noteWhatIsKnown();
    const double at = position();
    m_back.reset();
    m_isNearTurn = false;
    m_state = Lying{at};
}

void MpvMovie::noteWhatIsKnown()
{
    if (!m_facts && player()->isLoaded()) m_known = Known{player()->naturalSize(), player()->duration()};
}

void MpvMovie::playerFailed()
{
    const double at = position();
    auto last = std::move(started()->player);
    m_back.reset();
    if (!last->hasFrame()) last.reset();
    m_state = Broken{at, std::move(last)};
    tellSettled();
}

void MpvMovie::playerIsLoaded()
{
    tellSettled();
}

void MpvMovie::setMuted(bool muted)
{
    m_muted = muted;
    if (player()) player()->setMuted(muted);
}

void MpvMovie::setVolume(float volume)
{
    m_volume = volume;
    if (player()) player()->setVolume(volume);
}

Layer& MpvMovie::layer()
{
    return *m_layer;
}

std::shared_ptr<StillMovie> MpvMovie::copyForStills() const
{
    return std::make_shared<MpvStills>(m_shown, m_source, std::chrono::seconds(m_options.networkTimeout));
}

} // namespace kestro
