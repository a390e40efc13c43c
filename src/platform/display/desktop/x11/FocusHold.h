#pragma once

#include "platform/display/surface/x11/PacedCall.h"

#include <QAbstractNativeEventFilter>

#include <cstdint>
#include <functional>
#include <optional>

struct xcb_connection_t;

namespace kestro {

/// Holds the input focus of an X11 display with a window of its own that has no picture, without grabbing
/// anything: it notes who had the focus, takes it back when it goes to another window, leaves it to a screen
/// locker, and gives it back. When the process ends otherwise the keyboard follows the pointer. Main thread.
/// Tested by test_session.
class FocusHold final : public QAbstractNativeEventFilter {
public:
    /// What comes to the window.
    struct Handlers {
        std::function<void(std::uint8_t code)> keyPressed; ///< for the first time, or because it repeats
        std::function<void()> released;                    ///< a key or a button
    };

    /// Takes the focus.
    FocusHold(xcb_connection_t* connection, Handlers handlers);
    ~FocusHold() override;
    FocusHold(const FocusHold&) = delete;
    FocusHold& operator=(const FocusHold&) = delete;

    /// Lays the window over all that the pointer can reach, below nobody but what is shown later, and is
    /// content with the focus as it is from now on.
    void cover();
    /// Gives the focus to who had it last, if it is still held.
    void giveBack();

    /// Whether what is pressed now comes to the window and to nobody else: it has the focus, and no other
    /// program has grabbed the keyboard.
    [[nodiscard]] bool hasKeyboard() const { return m_hasKeyboard; }

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    struct Owner {
        std::uint32_t window;
        std::uint8_t revertTo;
    };

    void createWindow();
    void take();
    void focusOn(const Owner& owner);
    [[nodiscard]] std::optional<Owner> currentOwner() const;
    void noteOwner();
    void takeBack();
    void focusMoved(std::uint8_t mode, bool isOurs);

    xcb_connection_t* m_connection;
    Handlers m_handlers;
    std::uint32_t m_window = 0;
    std::optional<unsigned> m_question; ///< after the first owner, not answered yet
    Owner m_owner{};
    bool m_isContent = false;
    bool m_hasKeyboard = false;
    PacedCall m_takeBack;
};

} // namespace kestro
