#include "presentation/KTMovieWindow.h"

#include "platform/display/desktop/Screen.h"

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

// On the saver's own black nothing but the stills could show the shadow, which is not worth its cost.
void KTMovieWindow::show(View& saver)
{
    setHasShadow(saver.window() && !saver.window()->isOpaque());
    makeKeyAndOrderFront();
}

Rect KTMovieWindow::covered() const
{
    return isVisible() && !m_movieView.isHoldingPicture() ? frame() : Rect{};
}

void KTMovieWindow::setFrameDisplay(const Rect& frame, bool display)
{
    Window::setFrameDisplay(frame, display);
    m_movieView.setFrame({{0, 0}, frame.size});
}

} // namespace kestro
