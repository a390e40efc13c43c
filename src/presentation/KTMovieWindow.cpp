#include "presentation/KTMovieWindow.h"

#include "platform/display/Screen.h"

namespace kestro {

KTMovieWindow::KTMovieWindow(const Rect& rect, Screen& screen, const MovieFramePlatform& platform)
    : Window({rect.movedBy(screen.frame().origin), &screen, QStringLiteral("movie")})
    , m_movieView({{0, 0}, rect.size}, platform)
{
    setHasShadow(true);
    setOpaque(false);
    setContentView(&m_movieView);
    setBackgroundColor(Qt::transparent);
    setLevel(WindowLevel::Shielding);
}

KTMovieWindow::~KTMovieWindow() = default;

void KTMovieWindow::setFrameDisplay(const Rect& frame, bool display)
{
    Window::setFrameDisplay(frame, display);
    m_movieView.setFrame({{0, 0}, frame.size});
}

} // namespace kestro
