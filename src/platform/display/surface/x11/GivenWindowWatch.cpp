#include "platform/display/surface/x11/GivenWindowWatch.h"

#include "platform/display/surface/x11/X11Connection.h"

#include <QCoreApplication>

#include <xcb/xcb.h>

namespace kestro {

GivenWindowWatch::GivenWindowWatch(std::uint32_t window, Handlers handlers)
    : m_window(window)
    , m_handlers(std::move(handlers))
{
    listenTo(window, XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_EXPOSURE);
    QCoreApplication::instance()->installNativeEventFilter(this);
}

GivenWindowWatch::~GivenWindowWatch()
{
    if (auto* application = QCoreApplication::instance()) application->removeNativeEventFilter(this);
}

bool GivenWindowWatch::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*)
{
    if (eventType != "xcb_generic_event_t") return false;
    const auto& event = *static_cast<const xcb_generic_event_t*>(message);
    constexpr int sentFlag = 0x80; // another program sends it: a window manager, when it moves the window
    switch (event.response_type) {
    case XCB_CONFIGURE_NOTIFY:
    case XCB_CONFIGURE_NOTIFY | sentFlag:
        if (reinterpret_cast<const xcb_configure_notify_event_t&>(event).window == m_window)
            m_handlers.changed();
        break;
    case XCB_EXPOSE:
        if (reinterpret_cast<const xcb_expose_event_t&>(event).window == m_window) m_handlers.uncovered();
        break;
    case XCB_DESTROY_NOTIFY:
        if (reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window == m_window) m_handlers.gone();
        break;
    default:
        break;
    }
    return false;
}

} // namespace kestro
