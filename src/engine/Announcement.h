#pragma once

#include "engine/CaptionPicture.h"
#include "engine/WordsWindow.h"

namespace kestro {

class Clock;
class Screen;

/// A word to the person who has pressed a key, in the lower part of the screen: it stands for four seconds
/// and fades away. Owned by the engine. Main thread.
class Announcement final {
public:
    static constexpr double standing = 4; ///< seconds
    static constexpr double fading = 0.5; ///< seconds

    /// `clock` outlives it.
    explicit Announcement(const Clock& clock);

    /// Says it on that screen from now on, in the place of what it said before.
    void say(const CaptionLines& lines, Screen& screen);
    /// To be called at each tick.
    void tick();
    void hide() { m_window.hide(); }
    /// Lies above windows that came later.
    void raise() { m_window.raise(); }

    /// The window that it shows in, null while it shows none.
    [[nodiscard]] const Window* window() const { return m_window.window(); }

private:
    const Clock& m_clock;
    double m_saidAt = 0;
    WordsWindow m_window;
};

} // namespace kestro
