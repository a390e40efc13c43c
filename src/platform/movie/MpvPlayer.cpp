#include "platform/movie/MpvPlayer.h"

#include "platform/display/view/Layer.h"
#include "platform/movie/AvInput.h"
#include "platform/movie/MpvOptions.h"
#include "platform/movie/ShownFrame.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace kestro {

using std::chrono::milliseconds;

// A server that sends a little now and then is given up after so many time limits.
static constexpr int loadLimits = 3;
// A frame that nobody drew by then is dropped, so that the movie goes on while it is not shown.
static constexpr milliseconds drawnWithin{30};
// A seek takes tens of milliseconds; where there can be none (a stream), mpv may not say so.
static constexpr milliseconds longestMove{3000};
// So many frames that are not scaled, one after the other, are all to be so; before, one that is drawn in
// several sizes would have mpv change its mind with each.
static constexpr int settled = 8;
// mpv seeks to the first frame that begins no earlier than this before the target.
static constexpr double mpvSlack = 0.005;

std::unique_ptr<MpvPlayer> MpvPlayer::start(const MpvPlayerSetup& setup, MpvPlayerListener& listener)
{
    auto handle = MpvHandle::create(mpvOptions(setup), setup.openGL, setup.shown);
    if (!handle) return nullptr;
    return std::unique_ptr<MpvPlayer>(new MpvPlayer(setup, listener, std::move(handle)));
}

MpvPlayer::MpvPlayer(const MpvPlayerSetup& setup, MpvPlayerListener& listener,
                     std::unique_ptr<MpvHandle> handle)
    : m_setup(setup)
    , m_listener(listener)
    , m_decodesSound(!setup.muted)
    , m_handle(std::move(handle))
{
    prepareTimers();
    observe();
    setFilters(m_setup.rotation);
    if (isRemote()) m_loadTimer.start(loadLimits * std::chrono::seconds(m_setup.options.networkTimeout));
    load(m_setup.start);
}

void MpvPlayer::prepareTimers()
{
    for (QTimer* const timer : {&m_unwatchedTimer, &m_loadTimer, &m_moveTimer, &m_stallTimer})
        timer->setSingleShot(true);
    m_unwatchedTimer.setTimerType(Qt::PreciseTimer);
    m_unwatchedTimer.setInterval(drawnWithin);
    m_moveTimer.setInterval(longestMove);
    m_stallTimer.setInterval(m_setup.options.longestStall);
    m_unwatchedTimer.callOnTimeout(this, [this] { dropUnwatched(); });
    m_loadTimer.callOnTimeout(this, [this] { fail(); });
    m_moveTimer.callOnTimeout(this, [this] {
        if (m_state.tookTooLong()) arrive();
    });
    m_stallTimer.callOnTimeout(this, [this] { endStall(); });
}

void MpvPlayer::load(double start)
{
    m_state.load(start);
    m_setup.shown->left();
    const QByteArray target = mpvTarget(start);
    m_handle->set("start", target.toDouble() > 0 ? target : "none"); // not every server lets itself be sought
    m_handle->command(ofThisMove(Move), {"loadfile", mediaSource(m_setup.url).constData()});
}

/// The frame that is on at a time begins up to one frame before it.
QByteArray MpvPlayer::mpvTarget(double seconds) const
{
    const double before = std::max(0.0, m_setup.frameSeconds - mpvSlack - 0.001);
    return QByteArray::number(std::max(0.0, seconds - before), 'f', 6);
}

void MpvPlayer::setFilters(int rotation)
{
    m_setup.rotation = rotation;
    m_handle->set("vf", videoFilters(rotation, !drawsWithOpenGL()));
}

void MpvPlayer::seek(double seconds)
{
    if (m_state.goTo(seconds)) orderSeek();
}

void MpvPlayer::orderSeek()
{
    m_moveTimer.start();
    m_setup.shown->left();
    const QByteArray target = mpvTarget(m_state.position());
    m_handle->command(ofThisMove(Move), {"seek", target.constData(), "absolute+exact"});
}

void MpvPlayer::setPaused(bool paused)
{
    if (paused)
        m_state.stop();
    else
        m_state.play();
    m_handle->set("pause", paused ? "yes" : "no");
    watchProgress();
}

void MpvPlayer::setLooping(bool looping)
{
    m_handle->set("loop-file", looping ? "inf" : "no");
}

void MpvPlayer::setMuted(bool muted)
{
    m_setup.muted = muted;
    m_handle->set("mute", muted ? "yes" : "no");
    if (muted || std::exchange(m_decodesSound, true)) return;
    m_handle->set("aid", "auto");
}

void MpvPlayer::setVolume(double volume)
{
    m_handle->set("volume", mpvVolume(volume));
}

Size MpvPlayer::naturalSize() const
{
    if (!m_numbers) return {};
    return {static_cast<float>(m_numbers->width), static_cast<float>(m_numbers->height)};
}

void MpvPlayer::takeFrame()
{
    if (m_state.hasFailed()) return;
    if (m_state.isUnderway() && !hasFrame()) {
        m_picture = Showing::Waiting;
        return m_handle->skipFrame();
    }
    if (m_picture == Showing::Unwatched) {
        m_handle->skipFrame();
    } else {
        m_picture = Showing::Frame;
        m_unwatchedTimer.start();
    }
    m_listener.playerHasFrame();
}

/// Whatever waits to be drawn would hold up the movie.
void MpvPlayer::dropUnwatched()
{
    if (hasFrame()) m_picture = Showing::Unwatched;
    m_handle->skipFrame();
}

bool MpvPlayer::render(const PixelTarget& target)
{
    if (!hasFrame()) return false;
    noteDrawing();
    m_unscaledDraws = QSize(target.width, target.height) == m_frameSize ? m_unscaledDraws + 1 : 0;
    chooseScaler();
    return m_handle->render(target);
}

/// Light that is to be mapped needs more than eight bits, which libswscale does not give.
void MpvPlayer::chooseScaler()
{
    if (drawsWithOpenGL() || m_frameSize.isEmpty()) return;
    const bool isScaled = m_unscaledDraws == 0 || (m_usesZimg && m_unscaledDraws < settled);
    const bool usesZimg = isScaled || !m_light.isPlain();
    if (std::exchange(m_usesZimg, usesZimg) != usesZimg)
        m_handle->set("sws-allow-zimg", usesZimg ? "yes" : "no");
}

bool MpvPlayer::renderWithOpenGL(const FramebufferTarget& target)
{
    if (!hasFrame()) return false;
    noteDrawing();
    return m_handle->renderWithOpenGL(target);
}

void MpvPlayer::noteDrawing()
{
    m_picture = Showing::Frame;
    m_unwatchedTimer.stop();
}

} // namespace kestro
