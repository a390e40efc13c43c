#include "engine/Caption.h"

#include "engine/MovieWords.h"
#include "platform/base/Clock.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/surface/Surface.h"

#include <QLocale>

#include <algorithm>
#include <cmath>
#include <utility>

namespace kestro {

namespace {

// Of the screen's height.
constexpr float lettersShare = 1 / 45.0F;
constexpr float marginShare = 1 / 27.0F;
constexpr float smallestLetters = 11; ///< points
constexpr float widestShare = 0.4F;   ///< of the screen's width

constexpr std::int64_t corners = 4;
constexpr std::int64_t wanderings = 5; ///< places at each corner, one further in than the other

/// By the rules of the person's locale, without the seconds that some have.
QString timeOfDay(const QTime& time)
{
    const QLocale locale = QLocale::system();
    QString format = locale.timeFormat(QLocale::ShortFormat);
    format.remove(QStringLiteral(":ss"));
    return locale.toString(time, format);
}

CaptionSize sizeFor(const Screen& screen)
{
    const Size size = screen.frame().size;
    return {.letters = std::max(smallestLetters, size.height * lettersShare),
            .widest = size.width * widestShare,
            .pixelRatio = screen.surface().pixelRatio()};
}

} // namespace

Caption::Caption(const CaptionOptions& options, const Clock& clock)
    : m_options(options)
    , m_clock(clock)
    , m_window(QStringLiteral("caption"))
{
}

void Caption::setMovie(const MovieWords& movie)
{
    if (!m_options.showsTitle) return;
    m_lines.title = movie.title;
    m_lines.detail = movie.origin;
}

void Caption::tick(Screen* screen)
{
    if (m_options.isNone()) return;
    if (!screen) return hide();
    const bool isNewMinute = lookAtClock();
    const CaptionSize size = sizeFor(*screen);
    const bool isDrawn = m_window.screen() == screen || m_lines.isEmpty();
    if (!isDrawn || m_lines != m_drawn || size != m_drawnSize) {
        const Picture picture = captionPicture(m_lines, size);
        m_size = picture.size;
        m_window.show(*screen, picture, place(screen->frame().size));
        m_drawn = m_lines;
        m_drawnSize = size;
    } else if (isNewMinute) {
        m_window.moveTo(place(screen->frame().size));
    }
}

/// Whether another minute has begun since the last look. One look a second will do: each costs more than all
/// else that a tick does here.
bool Caption::lookAtClock()
{
    if (m_clock.now() < m_nextLook) return false;
    m_nextLook = m_clock.now() + 1;
    const QDateTime now = m_clock.wallTime();
    const std::int64_t minute = now.toSecsSinceEpoch() / 60;
    if (std::exchange(m_minute, minute) == minute) return false;
    if (m_options.showsClock) m_lines.clock = timeOfDay(now.time());
    return true;
}

/// Where its lower left corner is, on a screen of that size.
Point Caption::place(Size screen) const
{
    const std::int64_t corner = m_minute % corners;
    const std::int64_t turn = m_minute / corners % wanderings;
    const float margin = screen.height * marginShare * (1 + static_cast<float>(turn) / wanderings);
    const bool isRight = corner == 1 || corner == 2;
    const bool isUp = corner >= 2;
    return {std::round(isRight ? screen.width - margin - m_size.width : margin),
            std::round(isUp ? screen.height - margin - m_size.height : margin)};
}

} // namespace kestro
