#include "platform/movie/MpvPlayer.h"

#include "platform/base/Log.h"
#include "platform/display/Layer.h"
#include "platform/movie/AvInput.h"
#include "platform/movie/MpvOptions.h"
#include "platform/movie/MpvTracks.h"

#include <QPointer>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <utility>

namespace kestro {

using std::chrono::milliseconds;

// What an event answers.
enum Id : std::uint64_t { Ignored, TimePosition, EndReached, Width, Height, Duration, Move };
// Some answers carry the move they belong to in their upper half.
static constexpr int moveShift = 32;

// A picture that nobody drew by then is dropped, so that the movie goes on while it is not shown.
static constexpr milliseconds drawnWithin{30};
// A server that sends a little now and then is given up after so many time limits.
static constexpr int loadLimits = 3;
static constexpr int mostLoggedLines = 3;
// A seek takes tens of milliseconds; where there can be none (a stream), mpv may not say so.
static constexpr milliseconds longestMove{3000};
// mpv seeks to the first picture that begins no earlier than this before the target.
static constexpr double mpvSlack = 0.005;

std::unique_ptr<MpvPlayer> MpvPlayer::start(const MpvPlayerSetup& setup, MpvPlayerListener& listener)
{
    auto handle = MpvHandle::create(mpvOptions(setup), setup.openGL);
    if (!handle) return nullptr;
    return std::unique_ptr<MpvPlayer>(new MpvPlayer(setup, listener, std::move(handle)));
}

MpvPlayer::MpvPlayer(const MpvPlayerSetup& setup, MpvPlayerListener& listener,
                     std::unique_ptr<MpvHandle> handle)
    : m_setup(setup)
    , m_listener(listener)
    , m_silent(setup.muted)
    , m_handle(std::move(handle))
{
    m_unwatchedTimer.setSingleShot(true);
    m_unwatchedTimer.setTimerType(Qt::PreciseTimer);
    m_unwatchedTimer.callOnTimeout(this, [this] { dropUnwatched(); });
    m_loadTimer.setSingleShot(true);
    m_loadTimer.callOnTimeout(this, [this] { fail(); });
    m_moveTimer.setSingleShot(true);
    m_moveTimer.callOnTimeout(this, [this] { arrive(); });
    if (isRemote()) {
        m_loadTimer.start(std::chrono::seconds(loadLimits * m_setup.options.networkTimeout));
        mpv_hook_add(m_handle->raw(), Ignored, "on_preloaded", 0);
    }
    mpv_request_log_messages(m_handle->raw(), "error");
    m_handle->observe(TimePosition, "time-pos", MPV_FORMAT_DOUBLE);
    m_handle->observe(EndReached, "eof-reached", MPV_FORMAT_FLAG);
    m_handle->setNotifier([this] { wake(); });
    load(m_setup.start);
}

void MpvPlayer::load(double start)
{
    beginMove(start);
    m_fileLoaded = false;
    const QByteArray target = mpvTarget(start);
    m_handle->set("start", target.toDouble() > 0 ? target : "none"); // not every server lets itself be sought
    m_handle->command(ofThisMove(Move), {"loadfile", mediaSource(m_setup.url).constData()});
}

/// On any thread of mpv's: many notices make one event.
void MpvPlayer::wake()
{
    if (m_woken.exchange(true)) return;
    QMetaObject::invokeMethod(
        this, [this] { drain(); }, Qt::QueuedConnection);
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
    if (self && m_handle->takeNewPicture()) takePicture();
}

void MpvPlayer::handle(const mpv_event& event)
{
    switch (event.event_id) {
    case MPV_EVENT_FILE_LOADED:
        return handleLoaded();
    case MPV_EVENT_SEEK:
        return handleSeek();
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
    if (event.reply_userdata == TimePosition) {
        const double time = valueOf(event, MPV_FORMAT_DOUBLE, -1.0);
        // The picture at the target may have begun before it.
        const bool isAtTarget = time < m_target && time > m_target - m_setup.pictureSeconds;
        if (time >= 0 && !m_moving && !m_sent) m_position = isAtTarget ? m_target : time;
    }
    if (event.reply_userdata == EndReached && valueOf(event, MPV_FORMAT_FLAG, 0)) askWhetherEnded();
}

/// A notice of the end may be older than a seek away from it, so it only makes us ask.
void MpvPlayer::askWhetherEnded()
{
    if (m_moving) return;
    m_handle->ask(ofThisMove(EndReached), "eof-reached", MPV_FORMAT_FLAG);
}

void MpvPlayer::handleReply(const mpv_event& event)
{
    const bool isAboutThisMove = event.reply_userdata >> moveShift == m_moves;
    switch (event.reply_userdata & ((1ULL << moveShift) - 1)) {
    case Width:
        m_width = valueOf(event, MPV_FORMAT_DOUBLE, 0.0);
        return;
    case Height:
        m_height = valueOf(event, MPV_FORMAT_DOUBLE, 0.0);
        return;
    case Duration:
        m_duration = valueOf(event, MPV_FORMAT_DOUBLE, 0.0);
        m_loaded = m_width > 0 && m_height > 0;
        if (!m_loaded) return;
        m_loadTimer.stop();
        m_listener.playerIsLoaded();
        return;
    case Move:
        m_accepted |= isAboutThisMove;
        if (event.error < 0 && isAboutThisMove) arrive(); // cannot be sought: it is where it was
        return;
    case EndReached:
        if (isAboutThisMove && !m_moving && valueOf(event, MPV_FORMAT_FLAG, 0)) reachEnd();
        return;
    default:
        return;
    }
}

void MpvPlayer::handleLoaded()
{
    m_fileLoaded = true;
    m_underway = true;
    if (m_seekWhenLoaded >= 0) seek(std::exchange(m_seekWhenLoaded, -1));
}

void MpvPlayer::handleSeek()
{
    m_underway |= m_accepted;
}

void MpvPlayer::handleRestart()
{
    const bool isOfAnEarlierMove = m_moving && !m_underway;
    if (!m_fileLoaded || isOfAnEarlierMove) return;
    if (!m_loaded) {
        m_handle->ask(Width, "dwidth", MPV_FORMAT_DOUBLE);
        m_handle->ask(Height, "dheight", MPV_FORMAT_DOUBLE);
        m_handle->ask(Duration, "duration", MPV_FORMAT_DOUBLE);
    }
    arrive();
}

void MpvPlayer::arrive()
{
    m_moving = false;
    m_moveTimer.stop();
    askWhetherEnded();
    if (std::exchange(m_pictureWaits, false)) showPicture();
}

/// A remote movie that comes to its end without a picture (its index at the end of the file, say, on a server
/// that sends files only whole) has failed.
void MpvPlayer::reachEnd()
{
    if (isRemote() && !m_loaded) return fail();
    m_listener.playerReachedEnd();
}

void MpvPlayer::handleEnd(const mpv_event_end_file& end)
{
    if (end.reason == MPV_END_FILE_REASON_ERROR && !m_hasPicture) return fail();
    if (end.reason != MPV_END_FILE_REASON_ERROR && end.reason != MPV_END_FILE_REASON_EOF) return;
    m_hasPicture = false; // mpv let go of it
    m_listener.playerReachedEnd();
}

void MpvPlayer::fail()
{
    if (std::exchange(m_failed, true)) return;
    m_loadTimer.stop();
    m_handle->command(Ignored, {"stop"});
    m_listener.playerFailed();
}

/// A remote movie was opened and mpv waits, so asking is quick here: nothing of it may be shown before it is
/// upright.
void MpvPlayer::handleHook(const mpv_event_hook& hook)
{
    const int rotation = rotationOfMovingPicture(m_handle->raw());
    if (rotation > 0) {
        m_handle->set("hwdec", "no"); // the filter turns pictures in memory
        m_handle->set("vf", rotationFilter(rotation));
    }
    mpv_hook_continue(m_handle->raw(), hook.id);
    if (rotation < 0) fail();
}

void MpvPlayer::handleLog(const mpv_event_log_message& message)
{
    const QString source = QString::fromUtf8(message.prefix);
    if (source.startsWith(QLatin1String("ao"))) return; // no sound device is no fault of the movie
    if (++m_loggedLines > mostLoggedLines) return;
    logLine(QStringLiteral("%1: %2: %3")
                .arg(m_setup.url.toString(), source, QString::fromUtf8(message.text).trimmed()));
}

void MpvPlayer::takePicture()
{
    if (m_failed) return;
    if (m_moving && !m_hasPicture) {
        m_pictureWaits = true;
        return m_handle->skipPicture();
    }
    if (m_unwatched)
        m_handle->skipPicture();
    else
        m_unwatchedTimer.start(drawnWithin);
    showPicture();
}

void MpvPlayer::showPicture()
{
    m_hasPicture = true;
    m_listener.playerHasPicture();
}

/// Whatever waits to be drawn would hold up the movie.
void MpvPlayer::dropUnwatched()
{
    m_unwatched = true;
    m_handle->skipPicture();
}

bool MpvPlayer::render(const PixelTarget& target)
{
    if (!m_hasPicture) return false;
    noteDrawing();
    return m_handle->render(target);
}

bool MpvPlayer::renderWithOpenGL(const FramebufferTarget& target)
{
    if (!m_hasPicture) return false;
    noteDrawing();
    return m_handle->renderWithOpenGL(target);
}

void MpvPlayer::noteDrawing()
{
    m_unwatched = false;
    m_unwatchedTimer.stop();
}

std::uint64_t MpvPlayer::ofThisMove(std::uint64_t id) const
{
    return id | static_cast<std::uint64_t>(m_moves) << moveShift;
}

void MpvPlayer::beginMove(double to)
{
    ++m_moves;
    m_position = to;
    m_moving = true;
    m_target = to;
    m_accepted = false;
    m_underway = false;
    m_sent = m_paused;
}

/// The picture that is on at a time begins up to one picture before it.
QByteArray MpvPlayer::mpvTarget(double seconds) const
{
    const double before = std::max(0.0, m_setup.pictureSeconds - mpvSlack - 0.001);
    return QByteArray::number(std::max(0.0, seconds - before), 'f', 6);
}

void MpvPlayer::seek(double seconds)
{
    beginMove(seconds);
    if (!m_fileLoaded) {
        m_seekWhenLoaded = seconds;
        return;
    }
    m_moveTimer.start(longestMove);
    const QByteArray target = mpvTarget(seconds);
    m_handle->command(ofThisMove(Move), {"seek", target.constData(), "absolute+exact"});
}

void MpvPlayer::setPaused(bool paused)
{
    m_paused = paused;
    if (!paused) m_sent = false;
    m_handle->set("pause", paused ? "yes" : "no");
}

void MpvPlayer::setLooping(bool looping)
{
    m_handle->set("loop-file", looping ? "inf" : "no");
}

void MpvPlayer::setBackwards(bool backwards)
{
    beginMove(m_position);
    m_moveTimer.start(longestMove);
    m_handle->set("play-dir", backwards ? "backward" : "forward", ofThisMove(Move));
}

void MpvPlayer::setMuted(bool muted)
{
    m_setup.muted = muted;
    m_handle->set("mute", muted ? "yes" : "no");
    if (muted || !std::exchange(m_silent, false)) return;
    m_handle->set("aid", "auto");
    if (m_setup.reversible && m_setup.hasSound) loadReversible();
}

void MpvPlayer::setVolume(double volume)
{
    m_handle->set("volume", mpvVolume(volume));
}

void MpvPlayer::makeReversible()
{
    m_setup.reversible = true;
    loadReversible();
}

void MpvPlayer::loadReversible()
{
    for (const auto& [name, value] : reversingOptions())
        m_handle->set(name, value);
    load(m_position);
}

Size MpvPlayer::naturalSize() const
{
    return {static_cast<float>(m_width), static_cast<float>(m_height)};
}

} // namespace kestro
