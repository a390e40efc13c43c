#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include <chrono>
#include <functional>

namespace kestro {

/// Something that is done when it is asked for, but not more often than once in a span: what is asked for too
/// early is done once when the span is over. For what another program may answer with its opposite. Main
/// thread.
class PacedCall final {
public:
    PacedCall(std::chrono::milliseconds span, std::function<void()> action);

    void ask();

private:
    void act();

    std::function<void()> m_action;
    QElapsedTimer m_sinceLast;
    QTimer m_later;
};

} // namespace kestro
