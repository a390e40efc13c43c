#include "platform/movie/MpvMovie.h"

#include "platform/base/Log.h"
#include "platform/movie/DecoderThreads.h"
#include "platform/movie/MpvStills.h"
#include "platform/movie/ShownPicture.h"

#include <QThread>

#include <algorithm>
#include <concepts>

namespace kestro {

// Playing backwards keeps every picture from one keyframe to the next in memory, at 1.5 bytes a pixel.
static constexpr double mostReversalBytes = 256e6;
static constexpr double bytesPerPixel = 1.5;
// The last picture of a movie begins this much before its end, at most.
static constexpr double longestPicture = 0.5;

/// Shows what the player draws; being shown starts the player.
class MpvMovie::PlayerLayer final : public Layer {
public:
    explicit PlayerLayer(MpvMovie& movie)
        : m_movie(movie)
    {
    }

    void willShow() override { m_movie.beShown(); }

    [[nodiscard]] bool hasPicture() const override
    {
        const MpvPlayer* const player = m_movie.player();
        return player && !player->isCutOff() && player->hasPicture();
    }

    bool render(const PixelTarget& target) override
    {
        return hasPicture() && m_movie.player()->render(target);
    }

    [[nodiscard]] bool drawsWithOpenGL() const override
    {
        const MpvPlayer* const player = m_movie.player();
        return player && player->drawsWithOpenGL();
    }

    bool renderWithOpenGL(const FramebufferTarget& target) override
    {
        return hasPicture() && m_movie.player()->renderWithOpenGL(target);
    }

    void announce() const { announcePicture(); }

private:
    MpvMovie& m_movie;
};

MpvMovie::MpvMovie(const QUrl& url, const MpvMovieOptions& options)
    : m_url(url)
    , m_options(options)
    , m_layer(std::make_unique<PlayerLayer>(*this))
    , m_shown(std::make_shared<ShownPicture>())
{
    if (m_url.isLocalFile())
        open();
    else
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
    auto player = MpvPlayer::start({.url = m_url,
                                    .options = m_options,
                                    .start = at,
                                    .pictureSeconds = m_facts ? m_facts->pictureSeconds : 0,
                                    .rotation = m_facts ? m_facts->rotation : 0,
                                    .decoderThreads = threadsFor(m_facts),
                                    .reversible = turns(),
                                    .hasSound = !m_facts || m_facts->hasSound,
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
    const bool isCutOff = started() && player()->isCutOff();
    if (!isCutOff && !std::holds_alternative<Lying>(m_state)) return;
    QMetaObject::invokeMethod(
        &m_context, [this] { takePlayerForShow(); }, Qt::QueuedConnection);
}

void MpvMovie::takePlayerForShow()
{
    if (const auto* const lying = std::get_if<Lying>(&m_state)) static_cast<void>(start(lying->at));
    if (started() && player()->isCutOff()) replacePlayer();
}

/// One that draws in software goes on from where the other was.
void MpvMovie::replacePlayer()
{
    const bool wasPlaying = std::holds_alternative<Playing>(m_state);
    const bool hadEnded = std::holds_alternative<Ended>(m_state);
    const bool backwards = started()->backwards;
    if (!start(player()->position())) return;
    setBackwards(backwards);
    if (hadEnded) become<Ended>();
    if (wasPlaying) {
        become<Playing>();
        player()->setPaused(false);
    }
}

QTMovie::State MpvMovie::state() const
{
    if (std::holds_alternative<Broken>(m_state)) return State::Failed;
    return m_facts || (player() && player()->isLoaded()) ? State::Loaded : State::Loading;
}

Size MpvMovie::naturalSize() const
{
    if (m_facts) return m_facts->naturalSize();
    return player() ? player()->naturalSize() : Size{};
}

double MpvMovie::knownSeconds() const
{
    if (m_facts) return m_facts->seconds;
    return player() ? player()->duration() : 0;
}

MovieTime MpvMovie::duration() const
{
    return movieTimeFromSeconds(knownSeconds());
}

double MpvMovie::position() const
{
    if (const auto* const ended = std::get_if<Ended>(&m_state)) return endPosition(*ended);
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

bool MpvMovie::isAtEnd(double seconds) const
{
    return m_facts && m_facts->seconds > 0 && seconds >= m_facts->seconds;
}

void MpvMovie::setCurrentTime(MovieTime time)
{
    const double wanted = std::max(0.0, secondsFromMovieTime(time));
    const double seconds = knownSeconds() > 0 ? std::min(wanted, knownSeconds()) : wanted;
    if (auto* const opening = std::get_if<Opening>(&m_state)) opening->at = seconds;
    if (auto* const lying = std::get_if<Lying>(&m_state)) lying->at = seconds;
    if (!started()) return;
    player()->seek(seconds);
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
    player()->setPaused(false);
}

void MpvMovie::playFromEnd()
{
    const bool backwards = turns() && !started()->backwards;
    const bool fromTheBeginning = !turns();
    become<Standing>();
    setBackwards(backwards);
    if (fromTheBeginning) player()->seek(0);
}

void MpvMovie::stop()
{
    if (auto* const opening = std::get_if<Opening>(&m_state)) opening->plays = false;
    if (!std::holds_alternative<Playing>(m_state)) return;
    become<Standing>();
    player()->setPaused(true);
}

void MpvMovie::setAttribute(MovieAttribute attribute, bool on)
{
    bool& held = attribute == MovieAttribute::Loops ? m_loops : m_backAndForth;
    if (held == on) return;
    held = on;
    applyEndMode();
}

bool MpvMovie::attribute(MovieAttribute attribute) const
{
    return attribute == MovieAttribute::Loops ? m_loops : m_backAndForth;
}

bool MpvMovie::mayTurn() const
{
    if (!m_facts) return false;
    const double pixels = static_cast<double>(m_facts->codedWidth) * m_facts->codedHeight;
    return m_facts->keyframeDistance > 0 &&
           bytesPerPixel * pixels * m_facts->keyframeDistance < mostReversalBytes;
}

void MpvMovie::sayWhyItDoesNotTurn()
{
    if (std::exchange(m_saidWhy, true)) return;
    const QString why =
        m_facts ? QStringLiteral("its keyframes are too far apart") : QStringLiteral("it is remote");
    logLine(QStringLiteral("%1: loops instead of playing back and forth: %2").arg(m_url.toString(), why));
}

/// mpv loops by itself; turning is done here, each time it comes to an end.
void MpvMovie::applyEndMode()
{
    const Started* const with = started();
    if (!with) return;
    if (m_backAndForth && !mayTurn()) sayWhyItDoesNotTurn();
    if (turns() && !with->player->isReversible()) with->player->makeReversible();
    const bool loops = (m_loops || m_backAndForth) && !turns();
    with->player->setLooping(loops && !with->backwards);
}

void MpvMovie::setBackwards(bool backwards)
{
    if (started()->backwards == backwards) return;
    started()->backwards = backwards;
    applyEndMode();
    player()->setBackwards(backwards);
}

void MpvMovie::playerReachedEnd()
{
    if (std::holds_alternative<Playing>(m_state)) {
        if (turns()) return setBackwards(!started()->backwards);
        if (m_loops) return setBackwards(false); // forward, mpv goes on from the beginning by itself
        if (m_backAndForth) return;
    }
    become<Ended>();
    player()->setPaused(true);
}

void MpvMovie::playerHasPicture()
{
    m_layer->announce();
}

void MpvMovie::playerFailed()
{
    auto last = std::move(started()->player);
    const double at = last->position();
    if (!last->hasPicture()) last.reset();
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
    return std::make_shared<MpvStills>(m_shown, m_url, std::chrono::seconds(m_options.networkTimeout));
}

} // namespace kestro
