#pragma once

#include <QObject>

#include <functional>
#include <memory>

struct wl_output;
struct zwlr_output_power_v1;

namespace kestro {

class LayerShell;

/// Tells whether a Wayland compositor has switched an output off. It listens and never switches. Owned by a
/// surface on the output. Main thread. Tested by test_asleep.
class OutputPower final {
public:
    /// `onMode` is called from the event loop with each word of the compositor, never from within a call of
    /// this class; an output of which it tells no more counts as on. Null where it tells nobody.
    [[nodiscard]] static std::unique_ptr<OutputPower> create(const LayerShell& shell, wl_output* output,
                                                             std::function<void(bool isOn)> onMode);
    ~OutputPower();
    OutputPower(const OutputPower&) = delete;
    OutputPower& operator=(const OutputPower&) = delete;

private:
    struct Listener; ///< what the library calls
    OutputPower(zwlr_output_power_v1* power, std::function<void(bool)> onMode);

    void tell(bool isOn);

    zwlr_output_power_v1* m_power;
    std::function<void(bool)> m_onMode;
    QObject m_turn; ///< receives the queued calls
};

} // namespace kestro
