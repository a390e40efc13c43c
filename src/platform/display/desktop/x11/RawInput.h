#pragma once

#include <QAbstractNativeEventFilter>

#include <cstdint>
#include <functional>
#include <memory>

struct xcb_connection_t;

namespace kestro {

/// What a person does at the devices of an X11 display, wherever the input goes: heard beside those who get
/// it, nothing is taken from them. A key that was down before does not repeat here. Main thread.
/// Tested by test_session.
class RawInput final : public QAbstractNativeEventFilter {
public:
    struct Event {
        enum class Kind { KeyPress, KeyRelease, ButtonPress, ButtonRelease, Motion };
        Kind kind;
        std::uint32_t code; ///< of the key or the button
    };

    /// Null where the X server cannot tell.
    [[nodiscard]] static std::unique_ptr<RawInput> create(xcb_connection_t* connection,
                                                          std::function<void(const Event&)> handler);
    ~RawInput() override;
    RawInput(const RawInput&) = delete;
    RawInput& operator=(const RawInput&) = delete;

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    RawInput(std::uint8_t extension, std::function<void(const Event&)> handler);

    std::uint8_t m_extension;
    std::function<void(const Event&)> m_handler;
};

} // namespace kestro
