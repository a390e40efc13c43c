#pragma once

#include "engine/CaptionPicture.h"
#include "engine/WordsWindow.h"
#include "settings/CaptionOptions.h"

#include <cstdint>

namespace kestro {

class Clock;
class Screen;
struct MovieWords;

/// What plays and what time it is, small in a corner of the screen, for as long as the saver runs. It goes to
/// another corner every minute, so that it burns into none, and is drawn anew only when it says something
/// else. Where nothing of it was chosen it does nothing. Owned by the engine. Main thread.
class Caption final {
public:
    /// `clock` outlives it.
    Caption(const CaptionOptions& options, const Clock& clock);

    /// That movie shows from now on; one without a title where none does.
    void setMovie(const MovieWords& movie);
    /// To be called at each tick: is right for this moment on that screen from then on; null hides it.
    void tick(Screen* screen);
    void hide() { m_window.hide(); }
    /// Lies above windows that came later.
    void raise() { m_window.raise(); }

    /// The window that it shows in, null while it shows none.
    [[nodiscard]] const Window* window() const { return m_window.window(); }

private:
    [[nodiscard]] bool lookAtClock();
    [[nodiscard]] Point place(Size screen) const;

    CaptionOptions m_options;
    const Clock& m_clock;
    CaptionLines m_lines; ///< as they are to be
    CaptionLines m_drawn;
    CaptionSize m_drawnSize;
    Size m_size; ///< of the picture
    std::int64_t m_minute = 0;
    double m_nextLook = 0; ///< at the time of day
    WordsWindow m_window;
};

} // namespace kestro
