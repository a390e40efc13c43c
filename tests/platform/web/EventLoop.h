#pragma once

#include <QEventLoop>
#include <QTimer>

#include <functional>

namespace kestro {

/// Turns the event loop until the condition holds; false where it does not within half a minute.
inline bool turnUntil(const std::function<bool()>& condition)
{
    constexpr int bound = 180000;
    constexpr int step = 5;
    QEventLoop loop;
    QTimer look;
    look.callOnTimeout([&] {
        if (condition()) loop.exit(0);
    });
    look.start(step);
    QTimer::singleShot(bound, &loop, [&] { loop.exit(1); });
    return condition() || loop.exec() == 0;
}

} // namespace kestro
