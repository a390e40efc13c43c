#pragma once

#include "platform/display/view/Picture.h"

#include <QColor>

class QPainter;

namespace kestro {

class PaintRecord;

/// How drawn pixels meet what is there.
enum class Compositing { Copy, SourceOver };

/// What a view draws with, in the view's own coordinates (points, origin at the bottom left). It clips to the
/// view and to the part that is being redrawn. Lives for one drawRect; main thread.
class Painter final {
public:
    /// Draws through `device` (pixel coordinates, origin at the top left) at `pixelRatio` pixels a point; a
    /// view whose bottom left corner is at `viewOrigin` (points) in a backing store `storeHeight` points
    /// high. `record`, where given, is told what was painted.
    Painter(QPainter& device, Point viewOrigin, float storeHeight, double pixelRatio,
            PaintRecord* record = nullptr);

    /// Replaces what is in `rect` by `colour`, its alpha included.
    void fill(const Rect& rect, const QColor& colour);

    /// Draws the whole of `picture` scaled into `rect`.
    void draw(const Picture& picture, const Rect& rect, Compositing compositing, double opacity);

    /// Replaces `part` by black with `picture` over it, which lies scaled in `rect`, a rectangle around it.
    void drawOnBlack(const Picture& picture, const Rect& rect, const Rect& part, double opacity);

    /// The device, for what the two above cannot do, in pixels from the top left of the backing store.
    [[nodiscard]] QPainter& device();

    /// Where `rect` of the view lies on the device.
    [[nodiscard]] QRectF deviceRect(const Rect& rect) const;

private:
    [[nodiscard]] QRect pixelRect(const Rect& rect) const;
    void clear(const QRect& pixels);
    void noteFill(const QRect& pixels, int alpha);
    bool fillImage(const QRect& pixels, const QColor& colour);
    [[nodiscard]] bool copyOnBlack(const QImage& image, const QRect& place, const QRect& part,
                                   double opacity);
    [[nodiscard]] QRegion clipped(const QRect& pixels) const;

    QPainter& m_device;
    Point m_viewOrigin;
    float m_storeHeight;
    double m_pixelRatio;
    PaintRecord* m_record;
    bool m_isDeviceOut = false;
};

} // namespace kestro
