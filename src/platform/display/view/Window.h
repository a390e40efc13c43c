#pragma once

#include "platform/display/view/Geometry.h"
#include "platform/display/view/Identity.h"

#include <QColor>
#include <QImage>
#include <QString>

#include <memory>
#include <optional>

namespace kestro {

class BackingStore;
class Desktop;
class Screen;
class View;

/// Heights at which windows lie; a higher one is always above. The numbers are only compared.
enum class WindowLevel { Normal = 0, ScreenSaver = 1000, Shielding = 2000 };

/// A light window composited into its screen's one native surface. Frames are in global screen coordinates; a
/// window is shown on its own screen only and cut at that screen's edges. It keeps a backing store of what
/// its views drew. Owned by its maker; borrows its content view. A window whose screen went away lives on
/// unseen. Main thread.
class Window {
public:
    /// What is told once. `kind` names the window's part in logs and traces.
    struct Description {
        Rect contentRect;
        Screen* screen = nullptr; ///< null: a window without a screen, never seen
        QString kind;
    };

    explicit Window(const Description& description);
    virtual ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    [[nodiscard]] const QString& kind() const { return m_kind; }
    /// Null when it has none, or the one it had went away.
    [[nodiscard]] Screen* screen() const { return m_screen; }
    [[nodiscard]] Rect frame() const { return m_frame; }
    /// Moves and sizes the window and its backing store; the content view keeps its frame's origin and takes
    /// the new size. With `display` the views are drawn at once, else before the screen's next picture.
    virtual void setFrameDisplay(const Rect& frame, bool display);
    virtual void setFrameOrigin(Point origin);

    void setContentView(View* view);
    [[nodiscard]] View* contentView() const { return m_contentView; }

    /// 1 is solid, 0 unseen. Of the window as a whole.
    void setAlphaValue(float alpha);
    [[nodiscard]] float alphaValue() const { return m_alpha; }
    void setLevel(WindowLevel level);
    [[nodiscard]] WindowLevel level() const { return m_level; }
    /// Whether the whole window hides what is below it.
    void setOpaque(bool opaque);
    [[nodiscard]] bool isOpaque() const { return m_opaque; }
    /// Whether it throws a shadow on what lies below it, as soon as it shows anything.
    void setHasShadow(bool hasShadow);
    [[nodiscard]] bool hasShadow() const { return m_hasShadow; }
    /// What the backing store is filled with before views draw; transparent unless set.
    void setBackgroundColor(const QColor& colour);
    [[nodiscard]] const QColor& backgroundColor() const { return m_background; }

    /// Shows the window above, or below, the others of its level.
    void orderFront();
    void orderBack();
    void makeKeyAndOrderFront() { orderFront(); }
    /// Takes the window off the screen.
    void orderOut();
    [[nodiscard]] bool isVisible() const { return m_visible; }
    /// Posts WindowWillClose (platform/display/desktop/Notifications.h), then orders the window out.
    void close();

    /// Between the two the window's changes are kept from the screen, then shown together.
    void disableFlushWindow();
    void enableFlushWindow();
    /// Asks for a picture of what was drawn.
    void flushWindow();

    // For views and the compositor.
    [[nodiscard]] Identity identity() const { return m_identity; }
    [[nodiscard]] Identity shadowIdentity() const { return m_shadowIdentity; }
    /// The shadow of the window at that size in pixels; kept until another is wanted.
    [[nodiscard]] const QImage& shadow(QSize pixels);
    [[nodiscard]] BackingStore& store() { return *m_store; }
    /// What is on the screen of the backing store.
    [[nodiscard]] const QImage& shownPixels() const;
    [[nodiscard]] bool isFlushingDisabled() const { return m_flushDisables > 0; }
    /// Draws every view that is marked for display.
    void drawMarkedViews();
    /// A change wants to be seen.
    void scheduleUpdate();
    /// For the screen: its density may have changed and it moved on the desk, or it goes away.
    void screenChanged(Point movedBy);
    void screenGone();

private:
    void show(bool inFront);
    void resetStore();
    [[nodiscard]] double pixelRatio() const;

    QString m_kind;
    Identity m_identity = makeIdentity();
    Identity m_shadowIdentity = makeIdentity();
    Screen* m_screen = nullptr;
    Desktop* m_desktop = nullptr;
    Rect m_frame;
    std::unique_ptr<BackingStore> m_store;
    std::optional<QImage> m_pixelsBeforeDisable;
    View* m_contentView = nullptr;
    float m_alpha = 1;
    WindowLevel m_level = WindowLevel::Normal;
    int m_flushDisables = 0;
    QSize m_shadowOf; ///< the window's size that the shadow was made for
    QImage m_shadow;
    bool m_hasShadow = false;
    bool m_opaque = true;
    bool m_visible = false;
    QColor m_background = Qt::transparent;
};

} // namespace kestro
