#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

#include <functional>

namespace kestro {

/// How every test waits: turns the event loop until `isSo`, three minutes at most; answers whether it came to
/// be.
[[nodiscard]] inline bool waitUntil(const std::function<bool()>& isSo)
{
    const QDeadlineTimer bound(std::chrono::minutes(3));
    QTimer wakes; // for what comes without an event
    wakes.start(5);
    while (!isSo()) {
        if (bound.hasExpired()) return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

} // namespace kestro
