#pragma once

#include <QObject>
#include <QSet>
#include <QTimer>

#include <chrono>
#include <functional>

namespace kestro {

/// Knows which keys, buttons and fingers a person has down over windows of ours, as far as those were told.
/// Main thread.
class LetGoWatch final : public QObject {
public:
    LetGoWatch();

    /// From now on it hears what that window is told. The window must not outlive it.
    void watch(QObject& window) { window.installEventFilter(this); }

    /// Calls `done` as soon as nothing is down, at the latest after `bound`. It may be called before this
    /// returns.
    void whenLetGo(std::chrono::seconds bound, std::function<void()> done);

protected:
    bool eventFilter(QObject* window, QEvent* event) override;

private:
    void hear(const QEvent& event);
    void hearKey(const QEvent& event, bool isDown);
    void look();
    void end();

    QSet<quint32> m_keys; ///< that are down, by their numbers
    bool m_isButtonDown = false;
    bool m_isTouched = false;
    std::function<void()> m_done;
    QTimer m_bound;
};

} // namespace kestro
