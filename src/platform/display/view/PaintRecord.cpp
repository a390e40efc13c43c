#include "platform/display/view/PaintRecord.h"

#include <algorithm>
#include <utility>

namespace kestro {

namespace {

/// A region of more rectangles than this costs more to reckon with than it saves.
constexpr int mostRects = 24;

QRect largestRect(const QRegion& region)
{
    const auto area = [](const QRect& rect) { return qint64{rect.width()} * rect.height(); };
    return *std::max_element(region.begin(), region.end(),
                             [area](const QRect& a, const QRect& b) { return area(a) < area(b); });
}

/// Cheaply told: only where it is one rectangle.
bool isWithin(const QRegion& region, const QRegion& whole)
{
    return whole.rectCount() == 1 && whole.boundingRect().contains(region.boundingRect());
}

} // namespace

void PaintRecord::noteFill(const QRect& rect, int alpha)
{
    const QRegion region = clipped(rect);
    if (alpha == 255 && isWithin(region, m_opaque)) return addPainted(region);
    m_drawn = alpha > 0 ? m_drawn + region : m_drawn - region;
    m_opaque = alpha == 255 ? m_opaque + region : m_opaque - region;
    addPainted(region);
}

void PaintRecord::noteDrawn(const QRect& rect)
{
    const QRegion region = clipped(rect);
    m_drawn += region;
    addPainted(region);
}

void PaintRecord::noteReplaced(const QRect& rect)
{
    const QRegion region = clipped(rect);
    m_drawn += region;
    m_opaque -= region;
    addPainted(region);
}

void PaintRecord::noteAnything()
{
    noteReplaced(m_clip.boundingRect());
}

QRegion PaintRecord::takePainted()
{
    return std::exchange(m_painted, {});
}

void PaintRecord::addPainted(const QRegion& region)
{
    if (!isWithin(region, m_painted)) m_painted += region;
    simplify();
}

void PaintRecord::simplify()
{
    if (m_drawn.rectCount() > mostRects) m_drawn = m_drawn.boundingRect();
    if (m_opaque.rectCount() > mostRects) m_opaque = largestRect(m_opaque);
    if (m_painted.rectCount() > mostRects) m_painted = m_painted.boundingRect();
}

} // namespace kestro
