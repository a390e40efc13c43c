#pragma once

#include "platform/session/BusObject.h"

namespace kestro {

/// Whether the connection to the internet costs by the byte, kept up to date by NetworkManager. Owned by
/// whoever asks; main thread. Tested by FetchPermissionTest.
class MeteredWatch final {
public:
    enum class State {
        Asking,
        Metered, ///< also where it is only guessed
        Free,    ///< likewise
        Unknown, ///< NetworkManager is there and does not know, or does not answer
        Nobody,  ///< there is no NetworkManager, and so nobody whom a person could have told
    };

    explicit MeteredWatch(const QDBusConnection& systemBus);

    [[nodiscard]] State state() const { return m_state; }
    /// Called from the event loop when state() has changed.
    void setChangeHandler(std::function<void()> handler) { m_onChange = std::move(handler); }

private:
    void ask();
    void read();
    void become(State state);

    BusObject m_bus;
    BusObject m_manager;
    State m_state = State::Asking;
    std::function<void()> m_onChange;
};

} // namespace kestro
