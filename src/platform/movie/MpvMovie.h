#pragma once

#include "platform/base/Clock.h"
#include "platform/base/DetachedTask.h"
#include "platform/base/Result.h"
#include "platform/display/desktop/QtTimerSource.h"
#include "platform/display/view/Layer.h"
#include "platform/movie/BackwardsPlayer.h"
#include "platform/movie/KeptMovie.h"
#include "platform/movie/MovieFacts.h"
#include "platform/movie/MpvMovieOptions.h"
#include "platform/movie/MpvPlayer.h"
#include "platform/movie/QTMovie.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <variant>

namespace kestro {

class ShownFrame;

/// A real movie, played by libmpv, backwards by a BackwardsPlayer, its stills decoded by libavcodec. The file
/// of a local one is looked into first, on another thread; it starts its player when it is first played or
/// shown. A remote one starts it at once, to load, unless there is a copy of it on the disk, which is played
/// as a local one is. Made by MpvMovieLibrary. Main thread.
class MpvMovie final : public QTMovie, private MpvPlayerListener, private BackwardsListener {
public:
    MpvMovie(const QUrl& url, const MpvMovieOptions& options);
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
    void letGo() override;
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

    /// Its file is looked into. What it is to do then is kept.
    struct Opening {
        std::unique_ptr<DetachedTask> look = {};
        double at = 0; ///< seconds
        bool plays = false;
        bool isShown = false;
    };
    /// Known; nothing has been taken yet to play it with, or it was given back.
    struct Lying {
        double at = 0; ///< seconds
    };
    /// What it plays with, never null, and which way; that player stands while it goes backwards.
    struct Started {
        std::unique_ptr<MpvPlayer> player = {};
        bool backwards = false;
    };
    struct Standing : Started {};
    struct Playing : Started {};
    /// Stands at the end that it was going to.
    struct Ended : Started {};
    struct Broken {
        double at = 0;                          ///< seconds
        std::unique_ptr<MpvPlayer> player = {}; ///< shows the last frame; null where there was none
    };

    void playerHasFrame() override;
    void playerIsLoaded() override;
    void playerReachedEnd() override;
    void playerFailed() override;
    void backwardsHasFrame() override;
    void backwardsReachedBeginning() override;
    void backwardsFailed(const QString& reason) override;

    void open();
    [[nodiscard]] bool openKept();
    void takeKept(const std::optional<KeptMovie>& kept);
    void takeFacts(const std::optional<Result<MovieFacts, MovieFault>>& facts);
    void beShown();
    void takePlayerForShow();
    [[nodiscard]] bool start(double at);
    void replacePlayer();
    [[nodiscard]] MpvPlayer* player() const;
    [[nodiscard]] Started* started();
    template <typename Next>
    void become();
    void tellSettled();
    void noteWhatIsKnown();
    [[nodiscard]] double knownSeconds() const;
    [[nodiscard]] bool isAtEnd(double seconds) const;
    [[nodiscard]] bool isBackwards() const;
    [[nodiscard]] bool showsBackwards() const;
    [[nodiscard]] double position() const;
    [[nodiscard]] double endPosition(const Ended& ended) const;
    [[nodiscard]] bool turns() const { return m_backAndForth && !m_cannotTurn; }
    void applyEndMode();
    void approachTurn();
    void prepareBackwards(double from);
    void turnBack();
    void turnForth(double to);
    void setGoing(bool going);
    void seek(double seconds);
    void playFromEnd();

    const QUrl m_url;
    QUrl m_source;                      ///< what is read: the movie's own address, or its copy
    std::shared_ptr<Descriptor> m_hold; ///< on that copy; shared with who looked into it
    const MpvMovieOptions m_options;
    std::optional<MovieFacts> m_facts; ///< of a local movie, once it was looked into
    /// What the player of a remote movie knew when it was let go of; nothing before.
    struct Known {
        Size naturalSize;
        double seconds = 0;
    };
    std::optional<Known> m_known;
    std::unique_ptr<PlayerLayer> m_layer;
    const std::shared_ptr<ShownFrame> m_shown; ///< what copies for stills look at first
    std::variant<Opening, Lying, Standing, Playing, Ended, Broken> m_state = Opening{};
    bool m_loops = false;
    bool m_backAndForth = false;
    bool m_muted = false;
    bool m_cannotTurn = false; ///< it loops instead, and that was said
    bool m_isNearTurn = false; ///< about to come to its end and to turn, which is prepared
    float m_volume = 1;
    std::function<void()> m_settled; ///< told once it is no longer loading
    SystemClock m_clock;
    QtTimerSource m_timers;
    std::unique_ptr<BackwardsPlayer> m_back; ///< once it was to turn
    QObject m_context;                       ///< what is posted to this movie goes with it
};

} // namespace kestro
