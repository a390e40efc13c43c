#include "platform/movie/MpvMovie.h"

#include "platform/base/Log.h"
#include "platform/movie/DecoderThreads.h"
#include "platform/movie/KeyframeDistance.h"
#include "platform/movie/StillDecoder.h"
#include "platform/movie/StillMovie.h"

#include <QThread>

#include <algorithm>
#include <chrono>
#include <utility>

namespace kestro {

// Playing backwards keeps every picture from one keyframe to the next in memory, at 1.5 bytes a pixel.
static constexpr double mostReversalBytes = 256e6;
static constexpr double bytesPerPixel = 1.5;
// The last picture of a movie begins this much before its end, at most.
static constexpr double longestPicture = 0.5;

/// Shows what the player draws; looking at it starts the player.
class MpvMovie::PlayerLayer final : public Layer {
public:
    explicit PlayerLayer(MpvMovie& movie)
        : m_movie(movie)
    {
    }

    [[nodiscard]] bool hasPicture() const override
    {
        m_movie.startWhenShown();
        return m_movie.m_player && !m_movie.isCutOff() && m_movie.m_player->hasPicture();
    }

    bool render(const PixelTarget& target) override
    {
        return hasPicture() && m_movie.m_player->render(target);
    }

    [[nodiscard]] bool drawsWithOpenGL() const override
    {
        return m_movie.m_player && m_movie.m_player->drawsWithOpenGL();
    }

    bool renderWithOpenGL(const FramebufferTarget& target) override
    {
        return hasPicture() && m_movie.m_player->renderWithOpenGL(target);
    }

    void announce() const { announcePicture(); }

private:
    MpvMovie& m_movie;
};

/// Stills by a decoder of their own.
class MpvMovie::DecodedStills final : public StillMovie {
public:
    DecodedStills(const QUrl& url, std::chrono::milliseconds longest)
        : m_decoder(url)
        , m_longest(longest)
    {
    }

    void setStillSize(int width, int height) override { m_decoder.setSize({width, height}); }

    [[nodiscard]] Picture still(MovieTime time, std::stop_token stop) override
    {
        return m_decoder.picture(secondsFromMovieTime(time), m_longest, std::move(stop));
    }

private:
    StillDecoder m_decoder;
    std::chrono::milliseconds m_longest;
};

MpvMovie::MpvMovie(const QUrl& url, std::optional<MovieFacts> facts, const MpvMovieOptions& options)
    : m_url(url)
    , m_facts(facts)
    , m_options(options)
    , m_layer(std::make_unique<PlayerLayer>(*this))
{
    const bool loadsNow = !m_facts;
    if (loadsNow) static_cast<void>(ensurePlayer());
}

MpvMovie::~MpvMovie() = default;

static int threadsFor(const std::optional<MovieFacts>& facts)
{
    const int cores = QThread::idealThreadCount();
    return facts ? decoderThreads(*facts, cores) : decoderThreadsOfUnknown(cores);
}

bool MpvMovie::ensurePlayer()
{
    if (m_player || m_failed) return m_player != nullptr;
    m_player = MpvPlayer::start({.url = m_url,
                                 .options = m_options,
                                 .start = m_start,
                                 .pictureSeconds = m_facts ? m_facts->pictureSeconds : 0,
                                 .rotation = m_facts ? m_facts->rotation : 0,
                                 .decoderThreads = threadsFor(m_facts),
                                 .reversible = turns(),
                                 .hasSound = !m_facts || m_facts->hasSound,
                                 .muted = m_muted,
                                 .volume = m_volume,
                                 .openGL = m_options.openGL.lock()},
                                *this);
    m_failed = !m_player;
    applyEndMode();
    return m_player != nullptr;
}

/// Posted, so that what is set right after the movie is put on show (its position) is known when the player
/// starts.
void MpvMovie::startWhenShown()
{
    if ((m_player && !isCutOff()) || m_showing) return;
    m_showing = true;
    QMetaObject::invokeMethod(
        &m_context, [this] { playerIsWanted(); }, Qt::QueuedConnection);
}

void MpvMovie::playerIsWanted()
{
    m_showing = false;
    if (isCutOff())
        replacePlayer();
    else
        static_cast<void>(ensurePlayer());
}

/// One that draws in software goes on from where the other was.
void MpvMovie::replacePlayer()
{
    m_start = m_player->position();
    m_player.reset();
    if (!ensurePlayer()) return;
    if (m_backwards) m_player->setBackwards(true);
    if (m_playing) m_player->setPaused(false);
}

QTMovie::State MpvMovie::state() const
{
    if (m_failed) return State::Failed;
    return m_facts || m_player->isLoaded() ? State::Loaded : State::Loading;
}

Size MpvMovie::naturalSize() const
{
    if (m_facts) return m_facts->naturalSize();
    return m_player ? m_player->naturalSize() : Size{};
}

double MpvMovie::knownSeconds() const
{
    if (m_facts) return m_facts->seconds;
    return m_player ? m_player->duration() : 0;
}

MovieTime MpvMovie::duration() const
{
    return movieTimeFromSeconds(knownSeconds());
}

double MpvMovie::position() const
{
    const double here = m_player ? m_player->position() : m_start;
    if (!m_ended) return here;
    if (m_backwards) return 0;
    return here >= knownSeconds() - longestPicture ? knownSeconds() : here;
}

MovieTime MpvMovie::currentTime() const
{
    MovieTime time = movieTimeFromSeconds(position());
    const bool isDurationKnown = m_facts || state() == State::Loaded;
    if (isDurationKnown && knownSeconds() > 0)
        time.timeValue = std::min(time.timeValue, duration().timeValue);
    return time;
}

void MpvMovie::setCurrentTime(MovieTime time)
{
    const double wanted = std::max(0.0, secondsFromMovieTime(time));
    moveTo(knownSeconds() > 0 ? std::min(wanted, knownSeconds()) : wanted);
}

void MpvMovie::moveTo(double seconds)
{
    m_ended = m_facts && !m_playing && seconds >= m_facts->seconds;
    if (m_player)
        m_player->seek(seconds);
    else
        m_start = seconds;
}

float MpvMovie::rate() const
{
    if (!m_playing || state() != State::Loaded) return 0;
    return m_backwards ? -1.0F : 1.0F;
}

void MpvMovie::play()
{
    if (m_playing || m_failed) return;
    if (m_ended && turns())
        setBackwards(!m_backwards);
    else if (m_ended) {
        setBackwards(false);
        moveTo(0);
    }
    m_ended = false;
    if (!ensurePlayer()) return;
    m_playing = true;
    m_player->setPaused(false);
}

void MpvMovie::stop()
{
    m_playing = false;
    if (m_player) m_player->setPaused(true);
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

bool MpvMovie::mayTurn()
{
    if (m_mayTurn) return *m_mayTurn;
    const int distance = m_facts ? keyframeDistance(m_url.toLocalFile()) : 0;
    const double bytes = m_facts ? bytesPerPixel * distance * m_facts->codedWidth * m_facts->codedHeight : 0;
    m_mayTurn = distance > 0 && bytes < mostReversalBytes;
    if (!*m_mayTurn) {
        const QString why =
            m_facts ? QStringLiteral("its keyframes are too far apart") : QStringLiteral("it is remote");
        logLine(QStringLiteral("%1: loops instead of playing back and forth: %2").arg(m_url.toString(), why));
    }
    return *m_mayTurn;
}

bool MpvMovie::turns()
{
    return m_backAndForth && mayTurn();
}

/// mpv loops by itself; turning is done here, each time it comes to an end.
void MpvMovie::applyEndMode()
{
    if (!m_player) return;
    if (turns() && !m_player->isReversible()) m_player->makeReversible();
    const bool loops = (m_loops || m_backAndForth) && !turns();
    m_player->setLooping(loops && !m_backwards);
}

void MpvMovie::setBackwards(bool backwards)
{
    if (m_backwards == backwards) return;
    m_backwards = backwards;
    applyEndMode();
    if (ensurePlayer()) m_player->setBackwards(backwards);
}

void MpvMovie::playerReachedEnd()
{
    if (m_playing && turns()) return setBackwards(!m_backwards);
    if (m_playing && m_loops) return setBackwards(false); // forward, mpv goes on from the beginning by itself
    if (m_playing && m_backAndForth) return;
    m_ended = true;
    stop();
}

void MpvMovie::playerHasPicture()
{
    m_layer->announce();
}

void MpvMovie::playerFailed()
{
    m_failed = true;
    m_playing = false;
    tellSettled();
}

void MpvMovie::playerIsLoaded()
{
    tellSettled();
}

void MpvMovie::whenSettled(std::function<void()> settled)
{
    m_settled = state() == State::Loading ? std::move(settled) : nullptr;
}

/// Posted: whoever hears of it may let go of the movie.
void MpvMovie::tellSettled()
{
    if (auto settled = std::exchange(m_settled, nullptr))
        QMetaObject::invokeMethod(&m_context, std::move(settled), Qt::QueuedConnection);
}

void MpvMovie::setMuted(bool muted)
{
    m_muted = muted;
    if (m_player) m_player->setMuted(muted);
}

void MpvMovie::setVolume(float volume)
{
    m_volume = volume;
    if (m_player) m_player->setVolume(volume);
}

Layer& MpvMovie::layer()
{
    return *m_layer;
}

std::shared_ptr<StillMovie> MpvMovie::copyForStills() const
{
    return std::make_shared<DecodedStills>(m_url, std::chrono::seconds(m_options.networkTimeout));
}

} // namespace kestro
