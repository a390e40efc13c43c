#pragma once

#include "platform/display/surface/Surface.h"

class QPainter;
class QWidget;

namespace kestro {

/// A screen that is a widget: what is composed is kept in an image of the widget's device pixels, and the
/// widget paints from it. Input stays with the widget: no handler here hears of it. Owned by its screen; the
/// widget must outlive every call but the destructor. Main thread; pixels. Tested by SurfaceWidgetTest.
class WidgetSurface final : public Surface {
public:
    explicit WidgetSurface(QWidget& widget);

    [[nodiscard]] QImage& canvas() override { return m_canvas; }
    void present(const QRegion& changed) override;
    [[nodiscard]] double pixelRatio() const override { return m_pixelRatio; }
    void setCursorHidden(bool hidden) override;

    /// Fits the canvas to the widget's size and density as they are now, black where they changed. Answers
    /// whether they did.
    bool follow();
    /// Draws the part `exposed` (points of the widget) of what was composed, pixel for pixel.
    void paint(QPainter& painter, const QRegion& exposed) const;

private:
    QWidget& m_widget;
    QImage m_canvas;
    double m_pixelRatio = 1;
};

} // namespace kestro
