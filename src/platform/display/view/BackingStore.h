#pragma once

#include "platform/display/view/Geometry.h"
#include "platform/display/view/PaintRecord.h"

#include <QColor>
#include <QImage>
#include <QRegion>

#include <memory>
#include <vector>

class QPainter;

namespace kestro {

class View;

/// The pixels that a window's views drew into; they stay until drawn over. Nothing is cleared before a view
/// draws, and views below it do not draw again: a view that wants a clear ground fills it itself. Memory is
/// taken when something is drawn. Owned by its window. Main thread; sizes in points, pixels from the top
/// left.
class BackingStore final {
public:
    /// Starts anew, filled with `background`, at `pixelRatio` pixels a point.
    void reset(Size size, double pixelRatio, const QColor& background);
    [[nodiscard]] Size size() const { return m_size; }
    [[nodiscard]] double pixelRatio() const { return m_pixelRatio; }

    /// Draws all that is marked for display in `content` and the views in it, with what lies on it.
    void drawMarked(View& content);
    /// Draws the part `rect` of `view`, and the views in it there.
    void draw(View& view, const Rect& rect);

    /// ARGB32_Premultiplied; null while nothing was drawn.
    [[nodiscard]] const QImage& pixels() const { return m_canvas->pixels; }
    [[nodiscard]] QSize pixelSize() const;
    /// The pixels that hold anything, that hide what is below, and that were painted since the last call.
    [[nodiscard]] const QRegion& drawn() const { return m_canvas->record.drawn(); }
    [[nodiscard]] const QRegion& opaque() const { return m_canvas->record.opaque(); }
    [[nodiscard]] QRegion takePainted() { return m_canvas->record.takePainted(); }

private:
    using Rects = std::vector<Rect>;

    struct Canvas {
        QImage pixels;
        PaintRecord record;
        QPainter* painter = nullptr; ///< open while views draw; a view may have another drawn from within
    };

    /// Draws in `view` what is marked and what of `below`, the parts that were drawn under it, it covers. All
    /// in window coordinates; `clip` is what the superviews leave. Answers the parts that were drawn.
    Rects drawTree(View& view, const Rect& clip, const Rects& below);
    void drawParts(View& view, const Rects& parts);
    [[nodiscard]] bool makePixels();
    [[nodiscard]] QRegion pixelRegion(const Rects& parts) const;

    Size m_size;
    double m_pixelRatio = 1;
    /// Shared with the drawing that is under way: a view that has all start anew goes on drawing on what was.
    std::shared_ptr<Canvas> m_canvas = std::make_shared<Canvas>();
};

} // namespace kestro
