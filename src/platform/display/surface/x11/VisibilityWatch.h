#pragma once

#include <QAbstractNativeEventFilter>

#include <cstdint>
#include <functional>

namespace kestro {

/// Tells whether any of an X11 window can be seen: it is mapped, and other windows do not cover all of it.
/// Where a compositing manager paints the screen the server counts every mapped window as seen. Owned by the
/// window's surface. Main thread. Tested by test_rest.
class VisibilityWatch final : public QAbstractNativeEventFilter {
public:
    /// `container`, where it is another window, is one that `window` lies in: it has to be mapped as well.
    /// `onSeen` is called when it is another.
    VisibilityWatch(std::uint32_t window, std::uint32_t container, std::function<void(bool isSeen)> onSeen);
    ~VisibilityWatch() override;
    VisibilityWatch(const VisibilityWatch&) = delete;
    VisibilityWatch& operator=(const VisibilityWatch&) = delete;

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    void tell();

    std::uint32_t m_window;
    std::uint32_t m_container;
    std::function<void(bool)> m_onSeen;
    bool m_isCovered = false;
    bool m_isContainerMapped = true;
};

} // namespace kestro
