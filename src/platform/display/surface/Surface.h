#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QRegion>
#include <QSize>

#include <functional>
#include <utility>
#include <vector>

class QWindow;

namespace kestro {

/// What a person did at a surface. Positions are points from its top left corner.
struct InputEvent {
    enum class Kind { Key, Button, Motion, CloseRequest };
    /// Keys that a saver may act on, as they are pressed alone: with Control, Alt or Super each is another.
    enum class Key { Other, Left, Right, Up, Down, D, I, U };
    Kind kind;
    QPointF position;
    Key key = Key::Other;
    bool isRepeat = false; ///< the key has been down for a while
};

/// A native window that OpenGL shows a picture in. Pixels of the window from the top left.
struct OpenGLOutput {
    QWindow* window = nullptr;
    QSize pixels; ///< of the window
    QRect place;  ///< of the whole picture; what it does not cover is black
};

/// Where one screen's composed picture goes: a native window over a monitor, a window that was handed over,
/// or an image in memory. It owns the pixels that are composed into. Owned by its screen. Main thread.
class Surface {
public:
    virtual ~Surface() = default;

    /// The pixels to compose into, RGB32, rows aligned to 64 bytes; what was composed before is still there.
    /// Below its last row lie at least `guardRows` further rows of the same stride that may be written and
    /// are never shown.
    [[nodiscard]] virtual QImage& canvas() = 0;
    static constexpr int guardRows = 8;

    /// The size of the canvas, without the wait for the display that asking for the canvas to draw into may
    /// be.
    [[nodiscard]] virtual QSize pixelSize() { return canvas().size(); }

    /// Shows the part `changed` (pixels from the top left) of the canvas.
    virtual void present(const QRegion& changed) = 0;

    /// Device pixels a point.
    [[nodiscard]] virtual double pixelRatio() const = 0;

    /// Shows or hides the mouse pointer over the surface.
    virtual void setCursorHidden(bool hidden) = 0;

    /// The native window that OpenGL shows its pictures in, past the canvas; null where the canvas is what is
    /// shown.
    [[nodiscard]] virtual QWindow* openGLWindow() { return nullptr; }
    /// All of them, where there are several, the one above first; none where there is not even that one.
    [[nodiscard]] virtual std::vector<OpenGLOutput> openGLOutputs()
    {
        QWindow* const window = openGLWindow();
        if (!window) return {};
        return {{window, pixelSize(), QRect({0, 0}, pixelSize())}};
    }
    /// From now on the canvas is what is shown.
    virtual void leaveOpenGL() {}

    void setInputHandler(std::function<void(const InputEvent&)> handler) { m_onInput = std::move(handler); }
    /// Called when the whole picture is wanted anew: the surface has none of it left.
    void setRepairHandler(std::function<void()> handler) { m_onRepair = std::move(handler); }
    /// Called when nobody can see the surface any more, as far as the display tells, and when somebody can
    /// again: it is unmapped, covered, or on an output that shows nothing or is switched off. Seen from the
    /// start on.
    void setSeenHandler(std::function<void(bool isSeen)> handler) { m_onSeen = std::move(handler); }
    /// Whether it matters if somebody sees it, as it does from the start on. While it does not, a display
    /// that tells such things only to those who ask is not asked.
    virtual void setWatched(bool) {}

protected:
    /// Tells so, where it is news.
    void tellSeen(bool isSeen)
    {
        if (std::exchange(m_isSeen, isSeen) != isSeen && m_onSeen) m_onSeen(isSeen);
    }

    std::function<void(const InputEvent&)> m_onInput;
    std::function<void()> m_onRepair;

private:
    std::function<void(bool)> m_onSeen;
    bool m_isSeen = true;
};

} // namespace kestro
