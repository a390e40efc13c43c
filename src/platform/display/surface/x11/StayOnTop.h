#pragma once

#include "platform/display/surface/x11/PacedCall.h"

#include <QAbstractNativeEventFilter>

#include <cstdint>

struct xcb_connection_t;

namespace kestro {

/// Keeps an X11 window that no window manager looks after above windows that appear or rise later, but below
/// a screen locker's. It raises at most twice a second, whoever insists. Owned by the window's surface. Main
/// thread. Tested by test_session.
class StayOnTop final : public QAbstractNativeEventFilter {
public:
    StayOnTop(xcb_connection_t* connection, std::uint32_t window);
    ~StayOnTop() override;
    StayOnTop(const StayOnTop&) = delete;
    StayOnTop& operator=(const StayOnTop&) = delete;

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

    /// Lays the window where it belongs, shown or not.
    void settle();

private:
    xcb_connection_t* m_connection;
    std::uint32_t m_window;
    PacedCall m_settle;
};

} // namespace kestro
