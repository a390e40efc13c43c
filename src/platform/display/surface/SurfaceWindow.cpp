#include "platform/display/surface/SurfaceWindow.h"

#include "platform/display/surface/KeySymbols.h"

#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTouchEvent>
#include <QWheelEvent>

namespace kestro {

namespace {

/// Held with a key they make another of it; so does the block of digits.
constexpr Qt::KeyboardModifiers others =
    Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier | Qt::GroupSwitchModifier | Qt::KeypadModifier;

} // namespace

SurfaceWindow::SurfaceWindow(Qt::WindowFlags flags)
{
    setSurfaceType(RasterSurface);
    setFlags(flags | Qt::FramelessWindowHint);
    setTitle(QStringLiteral("Kestro"));
}

bool SurfaceWindow::event(QEvent* event)
{
    if (event->type() == QEvent::Enter) hideCursorAgain();
    if (event->type() != QEvent::Close) return QWindow::event(event);
    // Whether that ends the program is not for the window to decide.
    event->ignore();
    tell(InputEvent::Kind::CloseRequest, {});
    return true;
}

// Under Wayland a pointer's looks can be set only while it is in the window, and Qt does not tell the
// compositor what it believes to have told before.
void SurfaceWindow::hideCursorAgain()
{
    if (cursor().shape() != Qt::BlankCursor) return;
    setCursor(Qt::ArrowCursor);
    setCursor(Qt::BlankCursor);
}

void SurfaceWindow::exposeEvent(QExposeEvent*)
{
    if (m_onSeen) m_onSeen(isExposed());
    if (isExposed() && m_onExpose) m_onExpose();
}

void SurfaceWindow::keyPressEvent(QKeyEvent* event)
{
    const bool isAlone = (event->modifiers() & others) == Qt::NoModifier;
    const auto key =
        isAlone ? keyOfSymbol(event->nativeVirtualKey(), event->nativeScanCode()) : InputEvent::Key::Other;
    tell({InputEvent::Kind::Key, mapFromGlobal(QCursor::pos()), key, event->isAutoRepeat()});
}

void SurfaceWindow::mousePressEvent(QMouseEvent* event)
{
    tell(InputEvent::Kind::Button, event->position());
}

void SurfaceWindow::mouseMoveEvent(QMouseEvent* event)
{
    tell(InputEvent::Kind::Motion, event->position());
}

void SurfaceWindow::wheelEvent(QWheelEvent* event)
{
    tell(InputEvent::Kind::Button, event->position());
}

void SurfaceWindow::touchEvent(QTouchEvent* event)
{
    if (event->type() == QEvent::TouchBegin && !event->points().isEmpty())
        tell(InputEvent::Kind::Button, event->points().front().position());
}

void SurfaceWindow::tell(const InputEvent& event) const
{
    // Copied: what is told may put another handler in place.
    const auto handler = m_onInput;
    if (handler) handler(event);
}

} // namespace kestro
