#pragma once

#include "platform/display/surface/Surface.h"

#include <QWindow>

#include <functional>

namespace kestro {

/// The native window of one surface: empty, frameless, over a whole monitor or
/// over a window that was handed over. It turns what a person does to
/// it into input, and tells when it must be shown again. Owned by its surface. Main thread; positions in
/// points. Tested by X11DesktopTest.
class SurfaceWindow final : public QWindow {
public:
    explicit SurfaceWindow(Qt::WindowFlags flags);

    void setInputHandler(std::function<void(const InputEvent&)> handler) { m_onInput = std::move(handler); }
    /// Called when the window appears, or a part of it was uncovered.
    void setExposeHandler(std::function<void()> handler) { m_onExpose = std::move(handler); }
    /// Called with each word of the display whether the window is on a screen where it may be seen.
    void setSeenHandler(std::function<void(bool isSeen)> handler) { m_onSeen = std::move(handler); }

protected:
    bool event(QEvent* event) override;
    void exposeEvent(QExposeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void touchEvent(QTouchEvent* event) override;

private:
    void hideCursorAgain();
    void tell(InputEvent::Kind kind, QPointF position) const { tell({kind, position}); }
    void tell(const InputEvent& event) const;

    std::function<void(const InputEvent&)> m_onInput;
    std::function<void()> m_onExpose;
    std::function<void(bool)> m_onSeen;
};

} // namespace kestro
