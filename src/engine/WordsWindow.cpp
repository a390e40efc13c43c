#include "engine/WordsWindow.h"

#include "engine/PictureWindow.h"
#include "platform/display/desktop/Screen.h"

#include <utility>

namespace kestro {

namespace {

/// Of a point of that screen.
Point onDesk(const Screen& screen, Point origin)
{
    const Point corner = screen.frame().origin;
    return {corner.x + origin.x, corner.y + origin.y};
}

} // namespace

WordsWindow::WordsWindow(QString kind)
    : m_kind(std::move(kind))
{
}

WordsWindow::~WordsWindow()
{
    hide();
}

void WordsWindow::show(Screen& screen, const Picture& picture, Point origin)
{
    hide();
    if (picture.isNull()) return;
    m_view.setFrame({{0, 0}, picture.size});
    m_view.setImageFrame(picture, {{0, 0}, picture.size});
    m_window = openPictureWindow({{onDesk(screen, origin), picture.size}, &screen, m_kind}, m_view);
}

void WordsWindow::hide()
{
    closePictureWindow(m_window);
}

void WordsWindow::moveTo(Point origin)
{
    if (auto* const on = screen()) m_window->setFrameOrigin(onDesk(*on, origin));
}

void WordsWindow::raise()
{
    if (screen()) m_window->orderFront();
}

void WordsWindow::setAlpha(float alpha)
{
    if (m_window) m_window->setAlphaValue(alpha);
}

} // namespace kestro
