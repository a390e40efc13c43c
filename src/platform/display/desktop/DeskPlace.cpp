#include "platform/display/desktop/DeskPlace.h"

#include <QGuiApplication>
#include <QScreen>

namespace kestro {

namespace {

QRect firstMonitor()
{
    const QScreen* const primary = QGuiApplication::primaryScreen();
    return primary ? primary->geometry() : QRect();
}

} // namespace

Rect deskFrame(const QRect& place)
{
    const QRect first = firstMonitor();
    const int firstBottom = first.y() + first.height();
    const int bottom = place.y() + place.height();
    return {{static_cast<float>(place.x() - first.x()), static_cast<float>(firstBottom - bottom)},
            {static_cast<float>(place.width()), static_cast<float>(place.height())}};
}

Size monitorSizeAt(const QRect& place)
{
    QSize size = firstMonitor().size();
    int most = 0;
    for (const QScreen* monitor : QGuiApplication::screens()) {
        const QRect common = monitor->geometry().intersected(place);
        const int area = common.width() * common.height();
        if (area <= most) continue;
        most = area;
        size = monitor->size();
    }
    return {static_cast<float>(size.width()), static_cast<float>(size.height())};
}

Rect firstMonitorFrame()
{
    return deskFrame(firstMonitor());
}

} // namespace kestro
