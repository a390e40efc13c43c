#include "widgets/WindowPlace.h"

#include <QEvent>
#include <QGuiApplication>
#include <QWidget>
#include <QWindow>

namespace kestro {

WindowPlace::WindowPlace(QWidget& window)
    : QObject(&window)
    , m_window(window)
{
    m_window.installEventFilter(this);
}

// Before the window itself hears of it: a dialog that has no place yet takes one then.
bool WindowPlace::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Hide && !event->spontaneous()) keep();
    if (event->type() == QEvent::Show && !event->spontaneous()) restore();
    return QObject::eventFilter(watched, event);
}

void WindowPlace::keep()
{
    m_place.reset();
    if (!(m_window.windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen)))
        m_place = m_window.geometry();
}

// The frame of a hidden window is not known, so its place is that of what lies within. The widget may stand
// there already as far as it knows; the window manager is told all the same, by the window.
void WindowPlace::restore()
{
    if (!m_place || QGuiApplication::screenAt(m_place->center()) == nullptr) return;
    m_window.setGeometry(*m_place);
    if (QWindow* const window = m_window.windowHandle()) window->setGeometry(*m_place);
}

} // namespace kestro
