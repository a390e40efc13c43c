#pragma once

#include <QAbstractNativeEventFilter>
#include <QElapsedTimer>

#include <cstdint>

struct xcb_connection_t;

namespace kestro {

/// Keeps an X11 window that no window manager looks after above windows that appear or rise later. Gives in
/// to one that insists, like a screen locker: it raises at most twice a second. Owned by the window's
/// surface. Main thread.
class StayOnTop final : public QAbstractNativeEventFilter {
public:
    StayOnTop(xcb_connection_t* connection, std::uint32_t window);
    ~StayOnTop() override;
    StayOnTop(const StayOnTop&) = delete;
    StayOnTop& operator=(const StayOnTop&) = delete;

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    void listenToRoot();
    void raise();

    xcb_connection_t* m_connection;
    std::uint32_t m_window;
    QElapsedTimer m_sinceRaise;
};

} // namespace kestro
