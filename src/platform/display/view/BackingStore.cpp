#include "platform/display/view/BackingStore.h"

#include "platform/display/view/AlignedImage.h"
#include "platform/display/view/Painter.h"
#include "platform/display/view/PixelRect.h"
#include "platform/display/view/View.h"

#include <QPainter>

#include <algorithm>

namespace kestro {

namespace {

Rect visiblePart(const View& view, const Rect& rect)
{
    Rect part = view.convertToWindow(intersectionRect(rect, view.bounds()));
    for (const View* above = view.superview(); above; above = above->superview())
        part = intersectionRect(part, above->convertToWindow(above->bounds()));
    return part;
}

bool isHeldBack(const View& view)
{
    for (const View* each = &view; each; each = each->superview())
        if (each->isHoldingPicture()) return true;
    return false;
}

void addPart(std::vector<Rect>& parts, const Rect& part)
{
    if (part.isEmpty()) return;
    const auto covers = [&part](const Rect& other) { return intersectionRect(other, part) == part; };
    if (std::none_of(parts.begin(), parts.end(), covers)) parts.push_back(part);
}

Rect boundsOf(const std::vector<Rect>& parts)
{
    Rect all;
    for (const Rect& part : parts)
        all = unionRect(all, part);
    return all;
}

/// The views in `view`, for a walk in which a view may take others away while it draws.
template <typename Visit>
void visitSubviews(const View& view, Visit visit)
{
    for (View* inside : std::vector(view.subviews())) {
        const auto& still = view.subviews();
        if (std::find(still.begin(), still.end(), inside) != still.end()) visit(*inside);
    }
}

} // namespace

void BackingStore::reset(Size size, double pixelRatio, const QColor& background)
{
    const QRect before({0, 0}, pixelSize());
    m_size = size;
    m_pixelRatio = pixelRatio;
    m_canvas = std::make_shared<Canvas>(Canvas{{}, m_canvas->record});
    const QRect whole({0, 0}, pixelSize());
    PaintRecord& record = m_canvas->record;
    record.setClip(QRegion(before) + whole);
    record.noteFill(record.drawn().boundingRect(), 0);
    if (background.alpha() == 0 || !makePixels()) return;
    m_canvas->pixels.fill(background);
    record.noteFill(whole, background.alpha());
}

QSize BackingStore::pixelSize() const
{
    return {std::max(0, pixelEdge(m_size.width * m_pixelRatio)),
            std::max(0, pixelEdge(m_size.height * m_pixelRatio))};
}

bool BackingStore::makePixels()
{
    QImage& pixels = m_canvas->pixels;
    if (pixels.isNull()) pixels = alignedImage(pixelSize(), QImage::Format_ARGB32_Premultiplied);
    return !pixels.isNull();
}

void BackingStore::drawMarked(View& content)
{
    drawTree(content, {{0, 0}, m_size}, {});
}

void BackingStore::draw(View& view, const Rect& rect)
{
    if (isHeldBack(view)) return;
    Rects parts;
    addPart(parts, visiblePart(view, rect));
    if (parts.empty()) return;
    drawParts(view, parts);
    Rects drawn = parts;
    visitSubviews(view, [&](View& inside) {
        const Rects more = drawTree(inside, parts.front(), drawn);
        drawn.insert(drawn.end(), more.begin(), more.end());
    });
}

BackingStore::Rects BackingStore::drawTree(View& view, const Rect& clip, const Rects& below)
{
    if (view.isHoldingPicture()) return {};
    const Rect visible = intersectionRect(view.convertToWindow(view.bounds()), clip);
    Rects parts;
    for (const Rect& part : below)
        addPart(parts, intersectionRect(part, visible));
    for (const Rect& mark : view.takeMarks())
        addPart(parts, intersectionRect(view.convertToWindow(mark), visible));
    if (!parts.empty()) drawParts(view, parts);

    Rects drawn = parts;
    visitSubviews(view, [&](View& inside) {
        Rects beneath = below;
        beneath.insert(beneath.end(), drawn.begin(), drawn.end());
        for (const Rect& more : drawTree(inside, visible, beneath))
            addPart(drawn, more);
    });
    return drawn;
}

void BackingStore::drawParts(View& view, const Rects& parts)
{
    const QRegion region = pixelRegion(parts);
    if (region.isEmpty() || !makePixels()) return;
    const auto canvas = m_canvas;
    const bool isOutermost = !canvas->painter;
    QPainter own;
    if (isOutermost) {
        own.begin(&canvas->pixels);
        canvas->painter = &own;
    }
    const QRegion outerClip = canvas->record.clip();
    canvas->record.setClip(region);
    canvas->painter->save();
    canvas->painter->setClipRegion(region);
    const Point origin = view.convertToWindow(view.bounds()).origin;
    Painter painter(*canvas->painter, origin, m_size.height, m_pixelRatio, &canvas->record);
    view.drawRect(painter, boundsOf(parts).movedBy({-origin.x, -origin.y}));
    canvas->painter->restore();
    canvas->record.setClip(outerClip);
    if (isOutermost) canvas->painter = nullptr;
}

QRegion BackingStore::pixelRegion(const Rects& parts) const
{
    QRegion region;
    const float height = m_size.height;
    for (const Rect& part : parts) {
        region += pixelRectOf({part.left() * m_pixelRatio, (double{height} - part.top()) * m_pixelRatio,
                               part.size.width * m_pixelRatio, part.size.height * m_pixelRatio});
    }
    return region & QRect({0, 0}, pixelSize());
}

} // namespace kestro
