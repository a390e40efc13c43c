// What a player hears from mpv. Tested by MpvMovieTest.

#include "platform/base/Log.h"
#include "platform/base/PostTo.h"
#include "platform/base/ShownURL.h"
#include "platform/display/gl/OpenGL.h"
#include "platform/movie/DecoderMemory.h"
#include "platform/movie/MpvLight.h"
#include "platform/movie/MpvOptions.h"
#include "platform/movie/MpvPlayer.h"
#include "platform/movie/MpvTracks.h"
#include "platform/movie/ShownFrame.h"
#include "platform/movie/StreamEnd.h"

#include <QPointer>

#include <algorithm>
#include <cmath>
#include <utility>

namespace kestro {

static constexpr int mostLoggedLines = 3;
// A movie that began anew so often, each time before it could have played, cannot be read any more.
static constexpr int mostRoundsInVain = 5;
static constexpr double leastRound = 0.01; // seconds

void MpvPlayer::observe()
{
    if (isRemote()) mpv_hook_add(m_handle->raw(), Ignored, "on_preloaded", 0);
    mpv_request_log_messages(m_handle->raw(), "error");
    m_handle->observe(TimePosition, "time-pos", MPV_FORMAT_DOUBLE);
    m_handle->observe(EndReached, "eof-reached", MPV_FORMAT_FLAG);
    m_handle->observe(FrameParameters, "video-dec-params", MPV_FORMAT_NODE);
    m_handle->observe(LaterDuration, "duration", MPV_FORMAT_DOUBLE);
    if (isRemote()) m_handle->observe(Idle, "core-idle", MPV_FORMAT_FLAG);
    m_handle->setNotifier([this] { wake(); });
}

/// On any thread of mpv's: many notices make one event.
void MpvPlayer::wake()
{
    if (m_woken.exchange(true)) return;
    postTo(*this, [this] { drain(); });
}

void MpvPlayer::drain()
{
    m_woken = false;
    const QPointer<MpvPlayer> self(this);
    while (self) {
        const mpv_event& event = m_handle->nextEvent();
        if (event.event_id == MPV_EVENT_NONE) break;
        handle(event);
    }
    if (self && m_handle->takeNewFrame()) takeFrame();
}

void MpvPlayer::handle(const mpv_event& event)
{
    const bool waitsForAnswer = event.event_id == MPV_EVENT_HOOK;
    if (m_state.hasFailed() && !waitsForAnswer) return;
    switch (event.event_id) {
    case MPV_EVENT_FILE_LOADED:
        return handleLoaded();
    case MPV_EVENT_SEEK:
        return m_state.seekBegan();
    case MPV_EVENT_PLAYBACK_RESTART:
        return handleRestart();
    case MPV_EVENT_PROPERTY_CHANGE:
        return handleProperty(event);
    case MPV_EVENT_GET_PROPERTY_REPLY:
    case MPV_EVENT_SET_PROPERTY_REPLY:
    case MPV_EVENT_COMMAND_REPLY:
        return handleReply(event);
    case MPV_EVENT_END_FILE:
        return handleEnd(*static_cast<mpv_event_end_file*>(event.data));
    case MPV_EVENT_HOOK:
        return handleHook(*static_cast<mpv_event_hook*>(event.data));
    case MPV_EVENT_LOG_MESSAGE:
        return handleLog(*static_cast<mpv_event_log_message*>(event.data));
    default:
        return;
    }
}

template <typename T>
static T valueOf(const mpv_event& event, mpv_format format, T absent)
{
    const auto* property = static_cast<mpv_event_property*>(event.data);
    if (event.error < 0 || !property || property->format != format) return absent;
    return *static_cast<T*>(property->data);
}

void MpvPlayer::handleProperty(const mpv_event& event)
{
    switch (event.reply_userdata) {
    case TimePosition:
        return handleTime(valueOf(event, MPV_FORMAT_DOUBLE, -1.0));
    case EndReached:
        if (valueOf(event, MPV_FORMAT_FLAG, 0)) askWhetherEnded();
        return;
    case LaterDuration:
        return takeDuration(valueOf(event, MPV_FORMAT_DOUBLE, 0.0));
    case FrameParameters:
        return handleFrameParameters(event);
    case Idle:
        m_isIdle = valueOf(event, MPV_FORMAT_FLAG, 1);
        return watchProgress();
    default:
        return;
    }
}

/// Once for each way that frames of the movie were decoded. Where the card was given up mpv says nothing.
void MpvPlayer::handleDecoder(const QByteArray& answer)
{
    const QByteArray name = answer.isEmpty() ? QByteArray("no") : answer;
    if (std::exchange(m_decoder, name) == name) return;
    const QString by = name == "no" ? QStringLiteral("the processor")
                                    : QStringLiteral("the graphics card (%1)").arg(QString::fromLatin1(name));
    logLine(QStringLiteral("%1: decoded by %2.").arg(shownURL(m_setup.url), by));
}

/// Comes before the first frame with them.
void MpvPlayer::handleFrameParameters(const mpv_event& event)
{
    const auto params = valueOf(event, MPV_FORMAT_NODE, mpv_node{});
    const QSize size = frameSizeOf(params);
    if (size.isEmpty()) return; // between two frames of a kind
    m_frameSize = m_setup.rotation % 180 == 0 ? size : size.transposed();
    // Not before there is a frame: a card may take a movie on and refuse its first frame.
    if (m_setup.openGL && m_setup.openGL->isHardware())
        m_handle->ask(Decoder, "hwdec-current", MPV_FORMAT_STRING);
    const MovieLight before = std::exchange(m_light, lightOf(params));
    chooseScaler();
    if (before == m_light) return;
    if (!drawsWithOpenGL()) m_setup.shown->setLight(m_light);
    if (m_light.isHdr()) logLight();
}

void MpvPlayer::logLight() const
{
    const QString curve =
        m_light.curve == MovieLight::Curve::Pq ? QStringLiteral("PQ") : QStringLiteral("HLG");
    const QString how = drawsWithOpenGL()
                            ? QStringLiteral("by OpenGL")
                            : QStringLiteral("in software, up to %1 cd/m2").arg(std::lround(m_light.peak));
    logLine(QStringLiteral("%1: HDR (%2), tone-mapped %3.").arg(shownURL(m_setup.url), curve, how));
}

void MpvPlayer::handleTime(double time)
{
    if (time < 0) return;
    const double before = m_state.position();
    m_state.timeIs(time, m_setup.frameSeconds);
    const bool isShowing = hasFrame() && std::holds_alternative<PlayerState::Playing>(m_state.current());
    if (isShowing) m_setup.shown->began(time, m_setup.frameSeconds);
    if (m_state.position() == before) return;
    m_roundsInVain = 0;
    if (!isRemote()) noteProgress();
}

/// A notice of the end may be older than a seek away from it, so it only makes us ask.
void MpvPlayer::askWhetherEnded()
{
    if (m_state.isUnderway()) return;
    if (isRemote()) {
        m_handle->ask(BytesRead, "stream-pos", MPV_FORMAT_DOUBLE);
        m_handle->ask(BytesInAll, "stream-end", MPV_FORMAT_DOUBLE);
    }
    m_handle->ask(ofThisMove(EndReached), "eof-reached", MPV_FORMAT_FLAG);
}

void MpvPlayer::handleReply(const mpv_event& event)
{
    const auto move = static_cast<std::uint32_t>(event.reply_userdata >> moveShift);
    const double number = valueOf(event, MPV_FORMAT_DOUBLE, 0.0);
    switch (event.reply_userdata & ((1ULL << moveShift) - 1)) {
    case Width:
        m_asked.width = number;
        return;
    case Height:
        m_asked.height = number;
        return;
    case Duration:
        m_asked.duration = number;
        return takeNumbers();
    case BytesRead:
        m_source.read = number;
        return;
    case BytesInAll:
        m_source.length = number;
        return;
    case ReadAhead:
        return handleReadAhead(valueOf(event, MPV_FORMAT_FLAG, 1) != 0);
    case Decoder:
        return handleDecoder(valueOf<char*>(event, MPV_FORMAT_STRING, nullptr));
    case Move:
        if (event.error >= 0) return m_state.accepted(move);
        if (m_state.refused(move)) arrive();
        return;
    case EndReached:
        if (move == m_state.move() && !m_state.isUnderway() && valueOf(event, MPV_FORMAT_FLAG, 0)) reachEnd();
        return;
    default:
        return;
    }
}

void MpvPlayer::takeNumbers()
{
    if (m_asked.width <= 0 || m_asked.height <= 0 || m_state.hasFailed()) return;
    m_numbers = m_asked;
    m_loadTimer.stop();
    m_listener.playerIsLoaded();
    if (m_picture == Showing::Nothing) awaitStandingFrame();
    if (!m_state.isUnderway()) showAwaited();
}

/// mpv waits a fifth of a second for its frame to be drawn, then goes on without a notice. Where this thread
/// was busy for longer, nothing would tell of the frame that stands where it stopped; while it plays, the
/// next one does. It has the numbers only once it has had a frame.
void MpvPlayer::awaitStandingFrame()
{
    if (!m_state.isGoing() && !m_state.hasFailed()) m_picture = Showing::Waiting;
}

/// A movie that does not say how long it is grows with what is read of it.
void MpvPlayer::takeDuration(double seconds)
{
    if (m_numbers && seconds > 0) m_numbers->duration = seconds;
}

void MpvPlayer::handleLoaded()
{
    if (m_state.opened()) orderSeek();
}

void MpvPlayer::handleRestart()
{
    const bool beginsAnew = m_state.isGoing() && !m_state.isUnderway();
    if (!m_state.restarted()) return;
    if (beginsAnew && goesRoundInVain()) return fail();
    if (m_numbers) {
        awaitStandingFrame();
    } else {
        m_handle->ask(Width, "dwidth", MPV_FORMAT_DOUBLE);
        m_handle->ask(Height, "dheight", MPV_FORMAT_DOUBLE);
        m_handle->ask(Duration, "duration", MPV_FORMAT_DOUBLE);
    }
    arrive();
}

void MpvPlayer::arrive()
{
    m_moveTimer.stop();
    watchProgress();
    askWhetherEnded();
    showAwaited();
}

void MpvPlayer::showAwaited()
{
    if (m_picture != Showing::Waiting) return;
    m_picture = Showing::Frame;
    m_listener.playerHasFrame();
}

/// A looping movie whose server went away begins anew again and again, as fast as it can.
bool MpvPlayer::goesRoundInVain()
{
    const double seconds = m_round.isValid() ? static_cast<double>(m_round.restart()) / 1000 : 0;
    if (!m_round.isValid()) m_round.start();
    const bool couldHavePlayed = seconds > std::max(duration() / 2, leastRound);
    m_roundsInVain = couldHavePlayed ? 0 : m_roundsInVain + 1;
    return isRemote() && m_roundsInVain > mostRoundsInVain;
}

bool MpvPlayer::isStalling() const
{
    return m_state.isGoing() && (m_isIdle || !isRemote());
}

/// A frame may stand for long; only where mpv still waits for the disk meanwhile it has stalled.
void MpvPlayer::handleReadAhead(bool isDone)
{
    if (isDone) return noteProgress();
    if (isStalling()) fail();
}

/// Of a file mpv does not tell that it waits for its disk; but it tells of no new frame then.
void MpvPlayer::noteProgress()
{
    m_stallTimer.stop();
    watchProgress();
}

void MpvPlayer::watchProgress()
{
    if (!isStalling())
        m_stallTimer.stop();
    else if (!m_stallTimer.isActive())
        m_stallTimer.start();
}

/// What mpv told while this thread was busy elsewhere counts first.
void MpvPlayer::endStall()
{
    const QPointer<MpvPlayer> self(this);
    drain();
    if (!self || !isStalling() || m_stallTimer.isActive()) return;
    if (isRemote()) return fail();
    m_handle->ask(ReadAhead, "demuxer-cache-idle", MPV_FORMAT_FLAG);
}

/// A remote movie that comes to its end without a frame (its index at the end of the file, say, on a server
/// that sends files only whole), or before its time, has failed.
void MpvPlayer::reachEnd()
{
    const bool hasFailed = !m_numbers || brokeOff(position(), m_numbers->duration, m_source);
    if (isRemote() && hasFailed) return fail();
    m_listener.playerReachedEnd();
}

void MpvPlayer::handleEnd(const mpv_event_end_file& end)
{
    const bool isFault = end.reason == MPV_END_FILE_REASON_ERROR;
    if (isFault && (isRemote() || !hasFrame())) return fail();
    if (!isFault && end.reason != MPV_END_FILE_REASON_EOF) return;
    m_picture = Showing::Nothing; // mpv let go of it
    m_listener.playerReachedEnd();
}

/// The last frame stands until the movie is let go of.
void MpvPlayer::fail()
{
    if (m_state.hasFailed()) return;
    m_state.fail();
    for (QTimer* const timer : {&m_loadTimer, &m_moveTimer, &m_stallTimer})
        timer->stop();
    if (hasFrame())
        m_handle->set("pause", "yes");
    else
        m_handle->command(Ignored, {"stop"});
    m_listener.playerFailed();
}

/// A remote movie was opened and mpv waits, so asking is quick here: nothing of it may be shown before it is
/// upright.
void MpvPlayer::handleHook(const mpv_event_hook& hook)
{
    const auto facts = factsOfVideo(m_handle->raw());
    const auto fits = facts ? checkSize(*facts) : Result<void, MovieFault>();
    if (!fits) logLine(QStringLiteral("%1: %2").arg(shownURL(m_setup.url), plainWords(fits.failure())));
    const bool isRefused = !facts || !fits;
    if (isRefused)
        m_handle->set("vid", "no"); // nothing is decoded before the movie is stopped
    else
        prepareFor(*facts);
    mpv_hook_continue(m_handle->raw(), hook.id);
    if (isRefused) fail();
}

void MpvPlayer::prepareFor(const MovieFacts& facts)
{
    if (facts.rotation > 0) {
        m_handle->set("hwdec", "no"); // the filter turns frames in memory
        setFilters(facts.rotation);
    }
    m_handle->set("vd-lavc-threads", QByteArray::number(threadsThatFit(facts, m_setup.decoderThreads)));
    m_handle->set("vd-lavc-o", decoderBound(mostFramePixels(facts)));
}

void MpvPlayer::handleLog(const mpv_event_log_message& message)
{
    const QString source = QString::fromUtf8(message.prefix);
    if (source.startsWith(QLatin1String("ao"))) return; // no sound device is no fault of the movie
    if (++m_loggedLines > mostLoggedLines) return;
    logLine(QStringLiteral("%1: %2: %3")
                .arg(shownURL(m_setup.url), source, QString::fromUtf8(message.text).trimmed()));
}

std::uint64_t MpvPlayer::ofThisMove(std::uint64_t id) const
{
    return id | static_cast<std::uint64_t>(m_state.move()) << moveShift;
}

} // namespace kestro
