// What a movie does at its two ends. Tested by MpvTurnsTest.

#include "platform/base/Log.h"
#include "platform/base/ShownURL.h"
#include "platform/movie/MpvMovieLayer.h"

#include <chrono>
#include <concepts>

namespace kestro {

// Before a turn the last frames are decoded; a server, a disk and a decoder may take some time for that.
static constexpr double ahead = 4;

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

/// mpv loops by itself; turning is done here, each time it comes to an end.
void MpvMovie::applyEndMode()
{
    const bool loops = (m_loops || m_backAndForth) && !turns();
    if (started()) player()->setLooping(loops);
}

bool MpvMovie::isBackwards() const
{
    return std::visit(
        []<typename Current>(const Current& state) {
            if constexpr (std::derived_from<Current, Started>) return state.backwards;
            return false;
        },
        m_state);
}

/// Until the first frame backwards is there, the last one forwards stands.
bool MpvMovie::showsBackwards() const
{
    return isBackwards() && m_back->hasFrame();
}

/// Gets ready for the turn at its end, so that it goes on at once there.
void MpvMovie::approachTurn()
{
    const bool isNear = turns() && rate() > 0 && knownSeconds() > 0 && position() > knownSeconds() - ahead;
    if (isNear == m_isNearTurn) return;
    m_isNearTurn = isNear;
    if (isNear)
        prepareBackwards(knownSeconds());
    else
        m_back->rest();
}

void MpvMovie::prepareBackwards(double from)
{
    const BackwardsSetup setup{.url = m_source,
                               .longestRead = std::chrono::seconds(m_options.networkTimeout)};
    BackwardsListener& listener = *this;
    if (!m_back) m_back = std::make_unique<BackwardsPlayer>(setup, listener, m_clock, m_timers);
    m_back->setDrawnSize(m_layer->drawnSize());
    m_back->prepare(from);
}

/// Stands at its end, to go backwards.
void MpvMovie::turnBack()
{
    const double end = knownSeconds() > 0 ? knownSeconds() : player()->position();
    player()->setPaused(true);
    if (!m_isNearTurn) prepareBackwards(end);
    m_isNearTurn = false;
    started()->backwards = true;
    if (m_back->hasFrame()) backwardsHasFrame();
}

/// Stands there, to go forwards.
void MpvMovie::turnForth(double to)
{
    started()->backwards = false;
    m_back->rest();
    if (player()->position() != to) player()->seek(to);
}

/// Plays on, or stands, which way ever it goes.
void MpvMovie::setGoing(bool going)
{
    player()->setPaused(isBackwards() || !going);
    if (!isBackwards()) return;
    if (going)
        m_back->play();
    else
        m_back->pause();
}

void MpvMovie::seek(double seconds)
{
    if (isBackwards())
        prepareBackwards(seconds);
    else
        player()->seek(seconds);
}

void MpvMovie::playFromEnd()
{
    const bool wasBackwards = isBackwards();
    become<Standing>();
    if (wasBackwards)
        turnForth(0);
    else if (turns())
        turnBack();
    else
        player()->seek(0);
}

void MpvMovie::playerReachedEnd()
{
    if (isBackwards()) return;
    const bool isPlaying = std::holds_alternative<Playing>(m_state);
    if (isPlaying && turns()) {
        turnBack();
        return setGoing(true);
    }
    if (isPlaying && (m_loops || m_backAndForth)) return; // mpv goes on from the beginning by itself
    become<Ended>();
    player()->setPaused(true);
}

void MpvMovie::playerHasFrame()
{
    approachTurn();
    if (!showsBackwards()) m_layer->announce();
}

/// The player stands at the beginning meanwhile, to go on there at once.
void MpvMovie::backwardsHasFrame()
{
    if (!isBackwards()) return;
    if (player()->position() > 0) player()->seek(0);
    m_layer->announce();
}

void MpvMovie::backwardsReachedBeginning()
{
    if (turns() || m_loops) {
        turnForth(0);
        return setGoing(true);
    }
    become<Ended>();
}

void MpvMovie::backwardsFailed(const QString& reason)
{
    m_cannotTurn = true;
    m_isNearTurn = false;
    logLine(QStringLiteral("%1: loops instead of playing back and forth: %2").arg(shownURL(m_url), reason));
    applyEndMode();
    if (!isBackwards()) return;
    const bool isPlaying = std::holds_alternative<Playing>(m_state);
    turnForth(isPlaying ? 0 : position());
    setGoing(isPlaying);
}

} // namespace kestro
