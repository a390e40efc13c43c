#pragma once

#include "platform/display/view/Geometry.h"
#include "platform/display/view/Picture.h"
#include "platform/movie/MovieTime.h"

#include <QUrl>

#include <cstdint>
#include <functional>
#include <memory>
#include <stop_token>

namespace kestro {

class Layer;
class StillMovie;

/// What a movie does at its end. The two are set apart; where both are set, back and forth wins.
enum class MovieAttribute { Loops, LoopsBackAndForth };

/// One movie, opened from a URL. It may still be loading, from a disk or a server: its natural size and
/// duration are zero until they are known. Nothing plays until play(). What it costs to play (decoders,
/// threads) is only taken when it is first played or shown, so an opened local movie may lie idle.
/// Shared: the view that shows it and the engine hold it together. Main thread.
class QTMovie {
public:
    virtual ~QTMovie() = default;

    enum class State {
        Loading, ///< nothing is known of it yet
        Loaded,
        Failed, ///< it cannot be loaded, or broke off while it played, as its server went away; final
    };
    [[nodiscard]] virtual State state() const = 0;
    /// Runs `settled` once, on the event loop, after the state has left Loading; never where it is not
    /// Loading now. Another call takes the place of the one before; null takes it back.
    virtual void whenSettled(std::function<void()> settled) = 0;
    [[nodiscard]] virtual QUrl url() const = 0;

    /// Points at one pixel a point, turned upright, pixel aspect applied; zero while unknown.
    [[nodiscard]] virtual Size naturalSize() const = 0;
    /// Zero while unknown.
    [[nodiscard]] virtual MovieTime duration() const = 0;
    /// Never past the duration where that is known.
    [[nodiscard]] virtual MovieTime currentTime() const = 0;
    /// Moves the play position, exactly; cut to 0 … duration.
    virtual void setCurrentTime(MovieTime time) = 0;

    /// 1 playing, -1 playing backwards, 0 standing: never played, stopped, or at its end.
    [[nodiscard]] virtual float rate() const = 0;
    /// Plays on from where it stands; from the beginning when it stands at its end.
    virtual void play() = 0;
    virtual void stop() = 0;
    /// Stops, and gives back all that playing and showing take. What is known of the movie and where it
    /// stands are kept; being played or shown takes all anew.
    virtual void letGo() = 0;

    virtual void setAttribute(MovieAttribute attribute, bool on) = 0;
    [[nodiscard]] virtual bool attribute(MovieAttribute attribute) const = 0;

    virtual void setMuted(bool muted) = 0;
    [[nodiscard]] virtual bool isMuted() const = 0;
    /// 0 silent … 1 as recorded.
    virtual void setVolume(float volume) = 0;
    [[nodiscard]] virtual float volume() const = 0;

    /// The video; never null, lives as long as the movie.
    [[nodiscard]] virtual Layer& layer() = 0;

    /// A copy for stills alone, which knows of the movie what this one knows now; taking them never disturbs
    /// play. Never null.
    [[nodiscard]] virtual std::shared_ptr<StillMovie> copyForStills() const = 0;
};

// The handle functions: times are 32-bit units of the movie's own time scale.

/// The current play position.
[[nodiscard]] std::int32_t GetMovieTime(const QTMovie& movie);
/// Moves the play position.
void SetMovieTimeValue(QTMovie& movie, std::int32_t value);
/// Length of the movie; 0 while unknown.
[[nodiscard]] std::int32_t GetMovieDuration(const QTMovie& movie);

/// A rectangle of whole pixels as the handle functions take it.
struct MovieBox {
    std::int16_t top = 0;
    std::int16_t left = 0;
    std::int16_t bottom = 0;
    std::int16_t right = 0;
};
/// Sets the rectangle that stills of the movie fill.
void SetMovieBox(StillMovie& movie, MovieBox box);
/// A still of the movie at that time; a null picture when there is none, or when told to stop.
[[nodiscard]] Picture GetMoviePict(StillMovie& movie, std::int32_t value, std::stop_token stop = {});

} // namespace kestro
