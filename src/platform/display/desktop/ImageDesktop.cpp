#include "platform/display/desktop/ImageDesktop.h"

#include "platform/display/desktop/Screen.h"
#include "platform/display/gl/OpenGL.h"
#include "platform/display/surface/image/ImageSurface.h"
#include "platform/display/view/PixelRect.h"

namespace kestro {

ImageDesktop::ImageDesktop(const std::vector<Rect>& frames, double pixelRatio, TimerSource& timers,
                           const Clock& clock, Random& random, std::shared_ptr<OpenGL> openGL)
    : m_pixelRatio(pixelRatio)
    , m_timers(timers)
    , m_clock(clock)
    , m_random(random)
    , m_openGL(std::move(openGL))
{
    for (const Rect& frame : frames)
        plugIn(frame);
}

ImageDesktop::~ImageDesktop() = default;

std::vector<Screen*> ImageDesktop::screens() const
{
    std::vector<Screen*> all;
    for (const auto& screen : m_screens)
        all.push_back(screen.get());
    return all;
}

Screen& ImageDesktop::addScreen(const Rect& frame)
{
    Screen& screen = plugIn(frame);
    m_cursor.refresh();
    if (m_observer.added) m_observer.added(screen);
    return screen;
}

void ImageDesktop::removeScreen(Screen& screen)
{
    if (m_observer.removed) m_observer.removed(screen);
    std::erase_if(m_screens, [&screen](const auto& each) { return each.get() == &screen; });
}

void ImageDesktop::resizeScreen(Screen& screen, const Rect& frame)
{
    surfaceOf(screen).resize(pixelsOf(frame));
    screen.setFrame(frame);
    if (m_observer.resized) m_observer.resized(screen);
}

ImageSurface& ImageDesktop::surfaceOf(const Screen& screen)
{
    return static_cast<ImageSurface&>(screen.surface());
}

Screen& ImageDesktop::plugIn(const Rect& frame)
{
    auto surface = std::make_unique<ImageSurface>(pixelsOf(frame), m_pixelRatio);
    m_screens.push_back(std::make_unique<Screen>(*this, frame, std::move(surface)));
    return *m_screens.back();
}

QSize ImageDesktop::pixelsOf(const Rect& frame) const
{
    return {pixelEdge(frame.size.width * m_pixelRatio), pixelEdge(frame.size.height * m_pixelRatio)};
}

} // namespace kestro
