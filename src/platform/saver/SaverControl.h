#pragma once

#include "platform/display/view/Geometry.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace kestro {

class ConfigurableSaver;
class Screen;
class ScreenSaverView;

/// What a saver shows at one moment, for tests and traces. Rectangles are in the coordinates of the view's
/// screen.
struct SaverSnapshot {
    struct Movie {
        static constexpr std::int64_t unitsPerSecond = 600; ///< of movie time

        QString url;           ///< absolute string
        std::int64_t time = 0; ///< movie time units
        float rate = 0;
        Rect frame;                ///< of the movie frame
        std::int64_t duration = 0; ///< movie time units; 0 while unknown
        bool isHeard = false;      ///< it plays, and not without its sound
        float volume = 0;          ///< 0 silent … 1 as recorded
    };
    std::optional<Movie> movie; ///< nothing while the movie frame is empty or there is none
    int curIdx = -1;
    int trail = 0;            ///< records of the after-image trail
    bool isFading = false;    ///< a left-behind picture is fading
    std::optional<Rect> sign; ///< where the sign picture is, while it shows
};

/// How a saver rests while playing would be wasted.
enum class Rest {
    None,  ///< it plays
    Held,  ///< nobody sees it: all stands still, and is kept at hand to go on at once
    Still, ///< power is scarce: one picture wanders about, and nothing is kept at hand
    Off,   ///< nobody is to see it: nothing moves, and nothing is kept at hand
};

/// To which movie a saver changes.
enum class MovieStep { Next, Previous };

/// What a person asks of a saver by a key.
enum class SaverAct {
    ShowTitle, ///< says what plays and where it is from, for a few seconds
    Louder,    ///< each a step, where there is sound, until the saver ends
    Quieter,
    NeverAgain, ///< the movie is not played any more, in this run and in all others
    TakeBack,   ///< the last movie of which that was said is played again
};

/// What a host may do with a saver besides running its view. The view that a bundle makes is this as well
/// where the bundle has any of it to give; a host runs one that is not, and asks no more of it. Main thread.
class SaverControl {
public:
    /// The control of the saver that `view`, shown on `screen`, is run for: the view's own, or, where the
    /// view only stands behind the movies, that of the view in a window above it. Null where no view there
    /// has one.
    [[nodiscard]] static SaverControl* of(ScreenSaverView& view, const Screen& screen);

    virtual ~SaverControl();

    /// Has it rest like that from now on, until told otherwise; it goes on where it was. Ticks have no effect
    /// while it is held or off.
    virtual void rest(Rest) {}
    /// Has it change to another movie as if the one that plays had ended. Nothing where it rests, changes
    /// already, or has no other movie to play; the previous one is the one that it showed before.
    virtual void changeMovie(MovieStep) {}
    /// Has it do that. Nothing where it rests. Of several screens' savers the first alone has sound, and a
    /// movie that is not to be played again.
    virtual void act(SaverAct) {}
    /// What shows now.
    [[nodiscard]] virtual SaverSnapshot snapshot() const { return {}; }
    /// The saver as the sheet that edits its options knows it; null where there are none to edit.
    [[nodiscard]] virtual ConfigurableSaver* options() { return nullptr; }
};

} // namespace kestro
