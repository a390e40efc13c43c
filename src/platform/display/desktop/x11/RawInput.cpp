#include "platform/display/desktop/x11/RawInput.h"

#include "platform/display/surface/x11/X11Connection.h"

#include <QCoreApplication>

#include <optional>
#include <xcb/xinput.h>

namespace kestro {

namespace {

// All keyboards and pointers together, in an entry of its own: Qt listens to each device for itself.
bool listenToRawEvents(xcb_connection_t* connection)
{
    const struct {
        xcb_input_event_mask_t head;
        std::uint32_t mask;
    } wish = {{XCB_INPUT_DEVICE_ALL_MASTER, 1},
              XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE |
                  XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE |
                  XCB_INPUT_XI_EVENT_MASK_RAW_MOTION};
    const auto root = rootWindow().value_or(XCB_WINDOW_NONE);
    const auto cookie = xcb_input_xi_select_events_checked(connection, root, 1, &wish.head);
    const ReplyPtr<xcb_generic_error_t> refusal(xcb_request_check(connection, cookie), &std::free);
    return !refusal;
}

std::optional<RawInput::Event::Kind> kindOf(std::uint16_t type)
{
    switch (type) {
    case XCB_INPUT_RAW_KEY_PRESS:
        return RawInput::Event::Kind::KeyPress;
    case XCB_INPUT_RAW_BUTTON_PRESS:
        return RawInput::Event::Kind::ButtonPress;
    case XCB_INPUT_RAW_KEY_RELEASE:
        return RawInput::Event::Kind::KeyRelease;
    case XCB_INPUT_RAW_BUTTON_RELEASE:
        return RawInput::Event::Kind::ButtonRelease;
    case XCB_INPUT_RAW_MOTION:
        return RawInput::Event::Kind::Motion;
    default:
        return {};
    }
}

} // namespace

std::unique_ptr<RawInput> RawInput::create(xcb_connection_t* connection,
                                           std::function<void(const Event&)> handler)
{
    const auto* extension = xcb_get_extension_data(connection, &xcb_input_id);
    if (!extension || !extension->present || !listenToRawEvents(connection)) return nullptr;
    return std::unique_ptr<RawInput>(new RawInput(extension->major_opcode, std::move(handler)));
}

RawInput::RawInput(std::uint8_t extension, std::function<void(const Event&)> handler)
    : m_extension(extension)
    , m_handler(std::move(handler))
{
    QCoreApplication::instance()->installNativeEventFilter(this);
}

RawInput::~RawInput()
{
    if (auto* application = QCoreApplication::instance()) application->removeNativeEventFilter(this);
}

bool RawInput::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*)
{
    if (eventType != "xcb_generic_event_t") return false;
    const auto& event = *static_cast<const xcb_ge_generic_event_t*>(message);
    if (event.response_type != XCB_GE_GENERIC || event.extension != m_extension) return false;
    const auto& raw = *static_cast<const xcb_input_raw_button_press_event_t*>(message);
    if (const auto kind = kindOf(raw.event_type)) m_handler({*kind, raw.detail});
    return false;
}

} // namespace kestro
