#pragma once

#include "platform/display/view/Picture.h"

#include <QSize>

#include <memory>
#include <mutex>

struct mpv_render_context;

namespace kestro {

struct MovieLight;
struct PixelTarget;
class ToneMap;

/// The frame that a movie shows now, as its player can draw it once more, which takes a small part of what
/// decoding it anew would. mpv lets one thread at a time use a renderer, so whoever draws in software does it
/// through this. Shared by a movie, its player and its copies for stills; without a player it has no frame.
/// Any thread; seconds.
class ShownFrame final {
public:
    ShownFrame();
    ~ShownFrame();
    ShownFrame(const ShownFrame&) = delete;
    ShownFrame& operator=(const ShownFrame&) = delete;

    /// What draws from now on; before it goes, it is taken back.
    void setRenderer(mpv_render_context* renderer);
    /// Nothing, where another has come since.
    void takeBack(mpv_render_context* renderer);

    /// What light the numbers of frames stand for: what a screen has not is mapped from the next drawing on.
    void setLight(const MovieLight& light);

    /// The frame that shows began at `seconds` and is on for `lasts` (0: unknown).
    void began(double seconds, double lasts);
    /// Which frame shows is not known.
    void left();

    // For the player.
    /// Draws the newest frame, stretched. False when it could not.
    bool draw(const PixelTarget& target);
    /// Whether there is a frame that was not there at the last call.
    [[nodiscard]] bool takeNew();
    /// Lets mpv go on without drawing the frame that waits.
    void skip();

    /// The frame at that time of the movie, of that size; null where it is not the one that shows.
    [[nodiscard]] Picture picture(double seconds, QSize size);

private:
    [[nodiscard]] bool isOn(double seconds) const;
    bool drawLocked(const PixelTarget& target);
    bool renderLocked(const PixelTarget& target, const char* format);

    std::mutex m_mutex;
    mpv_render_context* m_renderer = nullptr;
    std::unique_ptr<const ToneMap> m_toneMap; ///< null where frames are drawn as they are
    bool m_hasBegun = false;
    double m_seconds = 0;
    double m_lasts = 0;
    bool m_wasTaken = false; ///< a frame was drawn for a still before the player asked for it
};

} // namespace kestro
