#pragma once

#include "platform/display/Layer.h"
#include "platform/movie/MovieFacts.h"
#include "platform/movie/MpvMovieOptions.h"
#include "platform/movie/MpvPlayer.h"
#include "platform/movie/QTMovie.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>

namespace kestro {

/// A real movie, played by libmpv, its stills decoded by libavcodec. A local one starts its player when it is
/// first played or shown; a remote one at once, to load. Made by MpvMovieLibrary. Main thread.
class MpvMovie final : public QTMovie, private MpvPlayerListener {
public:
    /// `facts` of a local movie, none for a remote one.
    MpvMovie(const QUrl& url, std::optional<MovieFacts> facts, const MpvMovieOptions& options);
    ~MpvMovie() override;

    [[nodiscard]] State state() const override;
    void whenSettled(std::function<void()> settled) override;
    [[nodiscard]] QUrl url() const override { return m_url; }
    [[nodiscard]] Size naturalSize() const override;
    [[nodiscard]] MovieTime duration() const override;
    [[nodiscard]] MovieTime currentTime() const override;
    void setCurrentTime(MovieTime time) override;
    [[nodiscard]] float rate() const override;
    void play() override;
    void stop() override;
    void setAttribute(MovieAttribute attribute, bool on) override;
    [[nodiscard]] bool attribute(MovieAttribute attribute) const override;
    void setMuted(bool muted) override;
    [[nodiscard]] bool isMuted() const override { return m_muted; }
    void setVolume(float volume) override;
    [[nodiscard]] float volume() const override { return m_volume; }
    [[nodiscard]] Layer& layer() override;
    [[nodiscard]] std::shared_ptr<StillMovie> copyForStills() const override;

private:
    class PlayerLayer;
    class DecodedStills;

    void playerHasPicture() override;
    void playerIsLoaded() override;
    void playerReachedEnd() override;
    void playerFailed() override;

    [[nodiscard]] bool ensurePlayer();
    void replacePlayer();
    void playerIsWanted();
    [[nodiscard]] bool isCutOff() const { return m_player && m_player->isCutOff(); }
    void startWhenShown();
    void tellSettled();
    [[nodiscard]] double knownSeconds() const;
    [[nodiscard]] double position() const;
    [[nodiscard]] bool mayTurn();
    [[nodiscard]] bool turns();
    void applyEndMode();
    void setBackwards(bool backwards);
    void moveTo(double seconds);

    const QUrl m_url;
    const std::optional<MovieFacts> m_facts;
    const MpvMovieOptions m_options;
    std::unique_ptr<PlayerLayer> m_layer;
    std::unique_ptr<MpvPlayer> m_player;
    std::optional<bool> m_mayTurn; ///< whether playing it backwards is affordable, once asked
    double m_start = 0;            ///< seconds; the position until there is a player
    bool m_playing = false;        ///< asked to play, and not come to the end since
    bool m_ended = false;          ///< stands at the end that it was going to
    bool m_backwards = false;
    bool m_failed = false;
    bool m_showing = false; ///< a start was posted because somebody looked
    bool m_loops = false;
    bool m_backAndForth = false;
    bool m_muted = false;
    float m_volume = 1;
    std::function<void()> m_settled; ///< told once it is no longer loading
    QObject m_context;               ///< what is posted to this movie goes with it
};

} // namespace kestro
