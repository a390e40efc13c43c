#pragma once

#include "platform/display/surface/Surface.h"
#include "platform/display/surface/SurfaceWindow.h"
#include "platform/display/surface/x11/GivenWindowWatch.h"
#include "platform/display/surface/x11/SeenWatch.h"
#include "platform/display/surface/x11/X11Canvas.h"

#include <QRect>

#include <cstdint>
#include <functional>
#include <memory>

namespace kestro {

/// The surface over an X11 window that another program hands over: a child window that covers it and leaves
/// all input, the focus and the pointer's looks to its parent. The root window is drawn in itself, because
/// children of it would be top-level windows. Owned by its screen. Main thread; pixels, which are points
/// here. Tested by WindowDesktopTest.
class ForeignWindowSurface final : public Surface {
public:
    /// Placed but not shown. Null where there is no such window, or its pixels are not ours.
    [[nodiscard]] static std::unique_ptr<ForeignWindowSurface> create(std::uint32_t window);
    ~ForeignWindowSurface() override;

    /// The parent window was moved or has another size, and the surface has followed.
    void setChangeHandler(std::function<void()> handler) { m_onChange = std::move(handler); }
    /// The parent window is no more.
    void setGoneHandler(std::function<void()> handler) { m_onGone = std::move(handler); }

    void show();
    /// The parent window on the desk, rows counted downwards.
    [[nodiscard]] QRect place() const { return m_place; }

    [[nodiscard]] QImage& canvas() override { return m_canvas->image(); }
    [[nodiscard]] QSize pixelSize() override { return m_canvas->size(); }
    void present(const QRegion& changed) override;
    [[nodiscard]] double pixelRatio() const override { return 1; }
    void setCursorHidden(bool) override {}
    void setWatched(bool isWatched) override;

private:
    explicit ForeignWindowSurface(std::uint32_t window);

    [[nodiscard]] bool isRoot() const;
    [[nodiscard]] bool readPlace();
    [[nodiscard]] std::uint32_t makeCover();
    void follow();
    void gone();
    void presentAll();

    std::uint32_t m_window;
    QRect m_place;
    std::function<void()> m_onChange;
    std::function<void()> m_onGone;
    std::unique_ptr<QWindow> m_parent;      ///< Qt's handle of their window; null for the root
    std::unique_ptr<SurfaceWindow> m_cover; ///< its child; null for the root
    std::unique_ptr<X11Canvas> m_canvas;    ///< of the cover, or of the root
    bool m_isShown = false;
    bool m_isWatched = true;
    std::unique_ptr<GivenWindowWatch> m_watch;
    std::unique_ptr<SeenWatch> m_seen; ///< of the cover; null for the root, and until shown
};

} // namespace kestro
