#pragma once

#include <QAbstractNativeEventFilter>

#include <cstdint>
#include <functional>

namespace kestro {

/// Tells what happens to an X11 window of another program. Asks for no input, grabs nothing and changes
/// nothing about the window. Owned by whoever draws there. Main thread. Tested by test_given_window.
class GivenWindowWatch final : public QAbstractNativeEventFilter {
public:
    struct Handlers {
        std::function<void()> changed;   ///< it has another size or place
        std::function<void()> uncovered; ///< a part of it must be drawn again
        std::function<void()> gone;      ///< it is no more
    };

    GivenWindowWatch(std::uint32_t window, Handlers handlers);
    ~GivenWindowWatch() override;
    GivenWindowWatch(const GivenWindowWatch&) = delete;
    GivenWindowWatch& operator=(const GivenWindowWatch&) = delete;

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    std::uint32_t m_window;
    Handlers m_handlers;
};

} // namespace kestro
