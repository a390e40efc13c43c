#include "platform/display/surface/x11/VisibilityWatch.h"

#include "platform/display/surface/x11/X11Connection.h"

#include <QCoreApplication>

#include <utility>
#include <xcb/xcb.h>

namespace kestro {

VisibilityWatch::VisibilityWatch(std::uint32_t window, std::uint32_t container,
                                 std::function<void(bool)> onSeen)
    : m_window(window)
    , m_container(container)
    , m_onSeen(std::move(onSeen))
{
    listenTo(window, XCB_EVENT_MASK_VISIBILITY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    if (container != window) listenTo(container, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    QCoreApplication::instance()->installNativeEventFilter(this);
}

VisibilityWatch::~VisibilityWatch()
{
    if (auto* application = QCoreApplication::instance()) application->removeNativeEventFilter(this);
}

// A window that is mapped is told of what covers it soon after.
bool VisibilityWatch::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*)
{
    if (eventType != "xcb_generic_event_t") return false;
    const auto& event = *static_cast<const xcb_generic_event_t*>(message);
    switch (event.response_type) {
    case XCB_VISIBILITY_NOTIFY: {
        const auto& visibility = reinterpret_cast<const xcb_visibility_notify_event_t&>(event);
        if (visibility.window != m_window) break;
        m_isCovered = visibility.state == XCB_VISIBILITY_FULLY_OBSCURED;
        tell();
        break;
    }
    case XCB_UNMAP_NOTIFY:
        if (reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window != m_container) break;
        m_isContainerMapped = false;
        tell();
        break;
    case XCB_MAP_NOTIFY:
        if (reinterpret_cast<const xcb_map_notify_event_t&>(event).window != m_container) break;
        m_isContainerMapped = true;
        tell();
        break;
    default:
        break;
    }
    return false;
}

void VisibilityWatch::tell()
{
    m_onSeen(m_isContainerMapped && !m_isCovered);
}

} // namespace kestro
