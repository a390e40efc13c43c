#pragma once

#include "engine/Announcement.h"
#include "engine/Caption.h"
#include "platform/saver/SaverControl.h"

#include <QUrl>

namespace kestro {

class LatestTrailers;
class MovieFrame;
class NeverList;
class Playlist;
class Screen;
class Settings;
struct SaverServices;

/// What a saver has to say: the caption, and its answers to what a person asks of it by keys, beside another
/// movie, which it does. Owned by the engine. Main thread.
class SaverActs final {
public:
    /// What plays, and where.
    struct Scene {
        MovieFrame& movie;
        QUrl url; ///< of the movie or the page
        Screen& screen;
        bool isFirst; ///< of all screens
    };

    /// All of it outlives this.
    SaverActs(Settings& settings, Playlist& playlist, const SaverServices& services, bool isPreview);

    /// Does it; answers whether another movie is to play from now on.
    [[nodiscard]] bool act(SaverAct what, const Scene& scene);
    /// Gives a movie that shows from now on the volume that was chosen, if any was.
    void applyVolume(MovieFrame& movie) const;

    /// The movie or the page of that address shows from now on; none where it is empty.
    void showMovie(const QUrl& url);
    /// To be called at each tick; null where the saver is on no screen.
    void tick(Screen* screen);
    /// Takes what is said from sight, until the next tick.
    void hide();
    /// Lays it above windows that came later.
    void raise();

private:
    static constexpr int loudest = 10; ///< steps of volume

    void showTitle(const Scene& scene);
    void changeVolume(int by, const Scene& scene);
    [[nodiscard]] float volume() const;
    [[nodiscard]] bool forget(const Scene& scene);
    void takeBack(const Scene& scene);
    [[nodiscard]] bool isOtherLeft(const QUrl& movie);
    void say(const Scene& scene, const QString& title, const QString& detail = {});

    Settings& m_settings;
    Playlist& m_playlist;
    LatestTrailers& m_trailers;
    NeverList* m_never; ///< null where nothing is remembered
    CaptionOptions m_options;
    int m_volume = loudest;
    Caption m_caption;
    Announcement m_announcement;
};

} // namespace kestro
