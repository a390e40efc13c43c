#pragma once

#include "platform/display/view/Layer.h"

#include <memory>
#include <optional>

namespace kestro {

class Clock;
class HiddenWindow;
class Timer;
class TimerSource;

/// The pixels of a hidden window as moving content. However often is drawn in there, a new picture is told of
/// thirty times a second at most, and nothing happens while nothing is drawn. Owned by the view that shows
/// it. Main thread. Tested by HackHostTest.
class HackLayer final : public Layer {
public:
    HackLayer(const Clock& clock, TimerSource& timers);
    ~HackLayer() override;

    /// Shows that window from now on, which must outlive this or be taken away; null for none.
    void setWindow(HiddenWindow* window);
    /// Something was drawn in the window.
    void drawn();

    [[nodiscard]] bool hasFrame() const override { return m_window && m_isDrawn; }
    bool render(const PixelTarget& target) override;

private:
    void announce();

    const Clock& m_clock;
    TimerSource& m_timers;
    HiddenWindow* m_window = nullptr;
    bool m_isDrawn = false;
    std::optional<double> m_announced; ///< when the last picture was told of, seconds
    std::unique_ptr<Timer> m_timer;    ///< until the next one may be
};

} // namespace kestro
