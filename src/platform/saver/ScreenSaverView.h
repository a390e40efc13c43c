#pragma once

#include "platform/display/view/View.h"

namespace kestro {

/// The base of every screen saver: a view that a host creates, starts, ticks at the interval that the view
/// asks for, and stops. Main thread.
class ScreenSaverView : public View {
public:
    ScreenSaverView(const Rect& frame, bool isPreview);
    ~ScreenSaverView() override;

    /// Whether this is the small view of a preferences window.
    [[nodiscard]] bool isPreview() const { return m_isPreview; }

    virtual void startAnimation();
    virtual void stopAnimation();
    [[nodiscard]] bool isAnimating() const { return m_animating; }
    virtual void animateOneFrame() {}

    /// Seconds between two ticks; hosts ask anew after each.
    [[nodiscard]] double animationTimeInterval() const { return m_interval; }
    void setAnimationTimeInterval(double seconds) { m_interval = seconds; }

    /// Fills `rect` black.
    void drawRect(Painter& painter, const Rect& rect) override;

    [[nodiscard]] virtual bool hasConfigureSheet() const { return false; }

private:
    bool m_isPreview;
    bool m_animating = false;
    double m_interval = 1.0 / 30;
};

} // namespace kestro
