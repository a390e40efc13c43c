#include "platform/display/surface/wayland/LetGoWatch.h"

#include <QKeyEvent>
#include <QMouseEvent>

#include <utility>

namespace kestro {

LetGoWatch::LetGoWatch()
{
    m_bound.setSingleShot(true);
    QObject::connect(&m_bound, &QTimer::timeout, this, [this] { end(); });
}

void LetGoWatch::whenLetGo(std::chrono::seconds bound, std::function<void()> done)
{
    m_done = std::move(done);
    m_bound.start(bound);
    look();
}

bool LetGoWatch::eventFilter(QObject*, QEvent* event)
{
    hear(*event);
    look();
    return false;
}

void LetGoWatch::hear(const QEvent& event)
{
    switch (event.type()) {
    case QEvent::KeyPress:
        return hearKey(event, true);
    case QEvent::KeyRelease:
        return hearKey(event, false);
    case QEvent::FocusOut:
        return m_keys.clear();
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
        m_isButtonDown = static_cast<const QMouseEvent&>(event).buttons() != Qt::NoButton;
        return;
    case QEvent::Leave: // comes when the buttons are up, or when they are another window's business
        m_isButtonDown = false;
        return;
    case QEvent::TouchBegin:
        m_isTouched = true;
        return;
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
        m_isTouched = false;
        return;
    case QEvent::Hide:
        m_keys.clear();
        m_isButtonDown = m_isTouched = false;
        return;
    default:
        return;
    }
}

/// A key that is held down repeats, and none of that is its release.
void LetGoWatch::hearKey(const QEvent& event, bool isDown)
{
    const auto& key = static_cast<const QKeyEvent&>(event);
    if (key.isAutoRepeat()) return;
    if (isDown)
        m_keys.insert(key.nativeScanCode());
    else
        m_keys.remove(key.nativeScanCode());
}

void LetGoWatch::look()
{
    if (m_done && m_keys.isEmpty() && !m_isButtonDown && !m_isTouched) end();
}

void LetGoWatch::end()
{
    m_bound.stop();
    if (const auto done = std::exchange(m_done, nullptr)) done();
}

} // namespace kestro
