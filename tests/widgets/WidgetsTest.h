#pragma once

#include "platform/base/Clock.h"
#include "platform/base/Random.h"
#include "platform/display/desktop/ManualTimerSource.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/view/Layer.h"
#include "platform/display/view/Painter.h"
#include "platform/display/view/View.h"
#include "platform/display/view/Window.h"
#include "support/WaitUntil.h"
#include "widgets/SurfaceWidget.h"

#include <QImage>
#include <QPaintEvent>

#include <gtest/gtest.h>

namespace kestro {

/// A view of one colour.
class ColourView final : public View {
public:
    ColourView(const Rect& frame, const QColor& colour)
        : View(frame)
        , m_colour(colour)
    {
    }

    void setColour(const QColor& colour)
    {
        m_colour = colour;
        setNeedsDisplay(true);
    }
    void drawRect(Painter& painter, const Rect& rect) override { painter.fill(rect, m_colour); }

private:
    QColor m_colour;
};

/// Notes what is painted of a widget.
class PaintWatch final : public QObject {
public:
    explicit PaintWatch(QWidget& widget) { widget.installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) painted += static_cast<QPaintEvent*>(event)->region();
        return false;
    }

    QRegion painted;
};

/// Services with a clock turned by hand.
class WidgetsTest : public testing::Test {
protected:
    /// The colour of a widget's picture at a point of it, from its top left.
    [[nodiscard]] static QColor at(QWidget& widget, double x, double y)
    {
        const QImage image = widget.grab().toImage();
        const double ratio = image.devicePixelRatio();
        return image.pixelColor(static_cast<int>(x * ratio), static_cast<int>(y * ratio));
    }

    ManualClock clock;
    ManualTimerSource timers{clock};
    SeededRandom random{1};
    SurfaceServices services{timers, clock, random};
};

} // namespace kestro
