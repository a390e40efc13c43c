#pragma once

#include <functional>

struct wl_callback;

namespace kestro {

/// Calls once, from the event loop, when the compositor has told all that it had to tell before it was asked;
/// never where this goes before. Wayland only. Main thread. Tested by test_overlay.
class SyncCall final {
public:
    /// The call must not destroy this.
    explicit SyncCall(std::function<void()> done);
    ~SyncCall();
    SyncCall(const SyncCall&) = delete;
    SyncCall& operator=(const SyncCall&) = delete;

private:
    struct Listener; ///< what the library calls

    wl_callback* m_callback;
    std::function<void()> m_done;
};

} // namespace kestro
