#include "engine/Announcement.h"

#include "platform/base/Clock.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/surface/Surface.h"

#include <algorithm>
#include <cmath>

namespace kestro {

namespace {

// Of the screen's height.
constexpr float lettersShare = 1 / 32.0F;
constexpr float placeShare = 0.17F;
constexpr float smallestLetters = 13; ///< points
constexpr float widestShare = 0.8F;   ///< of the screen's width

} // namespace

Announcement::Announcement(const Clock& clock)
    : m_clock(clock)
    , m_window(QStringLiteral("words"))
{
}

void Announcement::say(const CaptionLines& lines, Screen& screen)
{
    const Size size = screen.frame().size;
    const Picture picture =
        captionPicture(lines, {.letters = std::max(smallestLetters, size.height * lettersShare),
                               .widest = size.width * widestShare,
                               .pixelRatio = screen.surface().pixelRatio()});
    m_window.show(screen, picture,
                  {std::round((size.width - picture.size.width) / 2), std::round(size.height * placeShare)});
    m_saidAt = m_clock.now();
}

void Announcement::tick()
{
    if (!m_window.window()) return;
    const double left = standing + fading - (m_clock.now() - m_saidAt);
    if (left <= 0) return m_window.hide();
    m_window.setAlpha(static_cast<float>(std::min(1.0, left / fading)));
}

} // namespace kestro
