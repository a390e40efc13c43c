#include "host/render/TraceLine.h"

#include "host/session/HostedSaver.h"
#include "platform/base/JsonNumber.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/view/Window.h"
#include "platform/saver/SaverControl.h"

#include <QJsonArray>

#include <cmath>

namespace kestro {

namespace {

QJsonArray jsonRect(const Rect& rect)
{
    return {shortestReal(rect.origin.x), shortestReal(rect.origin.y), shortestReal(rect.size.width),
            shortestReal(rect.size.height)};
}

QJsonObject jsonWindow(const Window& window, Point screenOrigin)
{
    return {
        {QStringLiteral("kind"), window.kind()},
        {QStringLiteral("frame"), jsonRect(window.frame().movedBy({-screenOrigin.x, -screenOrigin.y}))},
        {QStringLiteral("alpha"), shortestReal(window.alphaValue())},
        {QStringLiteral("level"), static_cast<int>(window.level())},
    };
}

QJsonArray jsonWindows(const Screen& screen)
{
    QJsonArray windows;
    for (const Window* window : screen.windows())
        windows.append(jsonWindow(*window, screen.frame().origin));
    return windows;
}

QJsonValue jsonMovie(const std::optional<SaverSnapshot::Movie>& movie)
{
    if (!movie) return QJsonValue::Null;
    return QJsonObject{
        {QStringLiteral("url"), movie->url},
        {QStringLiteral("time"), qint64(movie->time)},
        {QStringLiteral("rate"), shortestReal(movie->rate)},
        {QStringLiteral("frame"), jsonRect(movie->frame)},
    };
}

} // namespace

QJsonObject traceLine(const HostedSaver& saver, int screenIndex, double seconds)
{
    const SaverControl* control = SaverControl::of(saver.view(), saver.screen());
    const SaverSnapshot shown = control ? control->snapshot() : SaverSnapshot();
    return {
        {QStringLiteral("t"), std::round(seconds * 1000) / 1000},
        {QStringLiteral("screen"), screenIndex},
        {QStringLiteral("tick"), saver.ticks()},
        {QStringLiteral("windows"), jsonWindows(saver.screen())},
        {QStringLiteral("movie"), jsonMovie(shown.movie)},
        {QStringLiteral("curIdx"), shown.curIdx},
        {QStringLiteral("trail"), shown.trail},
        {QStringLiteral("fading"), shown.isFading},
        {QStringLiteral("sign"), shown.sign ? QJsonValue(jsonRect(*shown.sign)) : QJsonValue::Null},
    };
}

} // namespace kestro
