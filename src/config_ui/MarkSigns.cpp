#include "config_ui/MarkSigns.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>
#include <numbers>

namespace kestro {

namespace {

/// The point at an angle from the top, in turns, on a circle of `radius` times the place's half width.
QPointF onCircle(const QRectF& place, double turns, double radius)
{
    const double angle = 2 * std::numbers::pi * turns;
    return place.center() + QPointF(std::sin(angle), -std::cos(angle)) * (radius * place.width() / 2);
}

QPainterPath star(const QRectF& place)
{
    constexpr double inner = 0.42;
    QPolygonF corners;
    for (int corner = 0; corner < 10; ++corner)
        corners << onCircle(place, corner / 10.0, corner % 2 == 0 ? 1 : inner);
    QPainterPath path;
    path.addPolygon(corners);
    path.closeSubpath();
    return path;
}

QPainterPath disc(const QPointF& centre, double radius)
{
    QPainterPath path;
    path.addEllipse(centre, radius, radius);
    return path;
}

void paintSun(QPainter& painter, const QRectF& place)
{
    painter.drawPath(disc(place.center(), place.width() * 0.24));
    painter.setPen(QPen(painter.brush(), place.width() / 10, Qt::SolidLine, Qt::RoundCap));
    for (int ray = 0; ray < 8; ++ray)
        painter.drawLine(onCircle(place, ray / 8.0, 0.68), onCircle(place, ray / 8.0, 0.88));
}

void paintMoon(QPainter& painter, const QRectF& place)
{
    const double radius = place.width() * 0.46;
    const QPointF aside = place.center() + QPointF(radius * 0.55, -radius * 0.35);
    painter.drawPath(disc(place.center(), radius) - disc(aside, radius * 0.85));
}

void paintClock(QPainter& painter, const QRectF& place)
{
    const QPen hand(painter.brush(), place.width() / 9, Qt::SolidLine, Qt::RoundCap);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(hand);
    painter.drawPath(disc(place.center(), place.width() * 0.43));
    painter.drawLine(place.center(), onCircle(place, 0, 0.55));
    painter.drawLine(place.center(), onCircle(place, 0.25, 0.45));
}

void paintTime(QPainter& painter, PlayTime::Kind kind, const QRectF& place)
{
    if (kind == PlayTime::Kind::Day) return paintSun(painter, place);
    if (kind == PlayTime::Kind::Night) return paintMoon(painter, place);
    paintClock(painter, place);
}

int gapFor(int side)
{
    return side / 4;
}

} // namespace

int widthOfMarkSigns(const EntryMark& mark, int side)
{
    const int count = (mark.isStarred ? 1 : 0) + (mark.time.kind == PlayTime::Kind::Always ? 0 : 1);
    return count == 0 ? 0 : count * side + (count - 1) * gapFor(side);
}

void paintMarkSigns(QPainter& painter, const EntryMark& mark, const QRect& place, const QColor& colour)
{
    const int side = place.height();
    QRect next(place.topLeft(), QSize(side, side));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    if (mark.isStarred) {
        painter.drawPath(star(next));
        next.translate(side + gapFor(side), 0);
    }
    if (mark.time.kind != PlayTime::Kind::Always) paintTime(painter, mark.time.kind, next);
    painter.restore();
}

} // namespace kestro
