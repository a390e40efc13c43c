#pragma once

#include "platform/base/Bounds.h"
#include "platform/display/view/Geometry.h"
#include "platform/movie/MovieLight.h"
#include "platform/movie/MpvHandle.h"
#include "platform/movie/MpvMovieOptions.h"
#include "platform/movie/PlayerState.h"
#include "platform/movie/StreamEnd.h"

#include <QElapsedTimer>
#include <QObject>
#include <QSize>
#include <QTimer>
#include <QUrl>

#include <atomic>
#include <memory>
#include <optional>

namespace kestro {

class ShownFrame;

/// What a player is started with.
struct MpvPlayerSetup {
    QUrl url;
    MpvMovieOptions options;
    double start = 0;        ///< seconds
    double frameSeconds = 0; ///< from one frame to the next, 0 when it varies
    int rotation = 0;        ///< degrees clockwise that turn it upright; a remote movie's is found out
    int decoderThreads = 1;
    qint64 mostFramePixels = Bounds::pixelsOfAnyStream; ///< a remote movie's is found out
    bool muted = false;                                 ///< sound is not even decoded until unmuted
    double volume = 1;
    std::shared_ptr<OpenGL> openGL = {}; ///< to draw with; null for software
    std::shared_ptr<ShownFrame> shown;   ///< is told what shows; never null
};

/// Hears from a player, on the main thread. May destroy it in any of these.
class MpvPlayerListener {
public:
    virtual void playerHasFrame() = 0;
    /// Its numbers are known.
    virtual void playerIsLoaded() = 0;
    /// Came to its end. It stands there.
    virtual void playerReachedEnd() = 0;
    /// Broke off; final. A frame that there was stays.
    virtual void playerFailed() = 0;

protected:
    ~MpvPlayerListener() = default;
};

/// Plays one movie with libmpv: starts standing, at the place it is given. Its questions are answered from
/// what mpv told last, never by asking. A remote movie that makes no progress while it should fails. Owned by
/// MpvMovie; main thread; seconds. Tested by MpvMovieTest.
class MpvPlayer final : public QObject {
public:
    /// Null when mpv cannot be had.
    [[nodiscard]] static std::unique_ptr<MpvPlayer> start(const MpvPlayerSetup& setup,
                                                          MpvPlayerListener& listener);

    void setPaused(bool paused);
    void seek(double seconds);
    void setLooping(bool looping);
    void setMuted(bool muted);
    void setVolume(double volume);

    /// Where it is; where it was sent, until it plays on from there.
    [[nodiscard]] double position() const { return m_state.position(); }
    /// Whether the numbers below are known.
    [[nodiscard]] bool isLoaded() const { return m_numbers.has_value(); }
    /// Zero where the movie does not say.
    [[nodiscard]] double duration() const { return m_numbers ? m_numbers->duration : 0; }
    [[nodiscard]] Size naturalSize() const;

    [[nodiscard]] bool hasFrame() const { return m_picture >= Showing::Frame; }
    bool render(const PixelTarget& target);
    [[nodiscard]] bool drawsWithOpenGL() const { return m_handle->drawsWithOpenGL(); }
    bool renderWithOpenGL(const FramebufferTarget& target);
    /// Whether it cannot draw any more and is to be replaced: the OpenGL that it drew with was lost.
    [[nodiscard]] bool isContextLost() const { return m_handle->isContextLost(); }

private:
    /// What an event answers.
    enum Id : std::uint64_t {
        Ignored,
        TimePosition,
        EndReached,
        Idle,
        Width,
        Height,
        Duration,
        LaterDuration,
        Decoder,
        FrameParameters,
        ReadAhead,
        BytesRead,
        BytesInAll,
        Move
    };
    /// Some answers carry the move they belong to in their upper half.
    static constexpr int moveShift = 32;

    /// What mpv tells of the movie, in this order.
    struct Numbers {
        double width = 0;
        double height = 0;
        double duration = 0;
    };
    enum class Showing {
        Nothing,
        Waiting,  ///< there is a frame that may be of before the place it was sent to
        Frame,    ///< there is one, and somebody draws
        Unwatched ///< there is one, and nobody drew it in time: mpv goes on without
    };

    MpvPlayer(const MpvPlayerSetup& setup, MpvPlayerListener& listener, std::unique_ptr<MpvHandle> handle);

    void prepareTimers();
    void observe();
    void load(double start);
    void wake();
    void drain();
    void handle(const mpv_event& event);
    void handleProperty(const mpv_event& event);
    void handleReply(const mpv_event& event);
    void handleTime(double time);
    void handleDecoder(const QByteArray& answer);
    void handleFrameParameters(const mpv_event& event);
    void logLight() const;
    void setFilters(int rotation);
    void chooseScaler();
    void takeNumbers();
    void takeDuration(double seconds);
    void handleLoaded();
    void handleRestart();
    void handleEnd(const mpv_event_end_file& end);
    void handleHook(const mpv_event_hook& hook);
    void prepareFor(const MovieFacts& facts);
    void handleLog(const mpv_event_log_message& message);
    void askWhetherEnded();
    void reachEnd();
    void takeFrame();
    void noteDrawing();
    void dropUnwatched();
    void orderSeek();
    void arrive();
    void awaitStandingFrame();
    void showAwaited();
    void watchProgress();
    void handleReadAhead(bool isDone);
    void noteProgress();
    void endStall();
    [[nodiscard]] bool isStalling() const;
    [[nodiscard]] bool goesRoundInVain();
    [[nodiscard]] QByteArray mpvTarget(double seconds) const;
    [[nodiscard]] std::uint64_t ofThisMove(std::uint64_t id) const;
    void fail();
    [[nodiscard]] bool isRemote() const { return !m_setup.url.isLocalFile(); }

    MpvPlayerSetup m_setup;
    MpvPlayerListener& m_listener;
    QTimer m_unwatchedTimer; ///< runs while a frame waits to be drawn
    QTimer m_loadTimer;      ///< bounds the loading of a remote movie
    QTimer m_moveTimer;      ///< bounds a move that mpv never ends
    QTimer m_stallTimer;     ///< runs while a movie should play on, but waits for its server or disk
    std::atomic<bool> m_woken{false};

    PlayerState m_state;
    Showing m_picture = Showing::Nothing;
    Numbers m_asked;                  ///< answered so far
    std::optional<Numbers> m_numbers; ///< once all are
    StreamBytes m_source;
    QSize m_frameSize; ///< pixels, upright; empty until it is known
    MovieLight m_light;
    int m_unscaledDraws = 1;     ///< one after the other; the first is taken for one
    bool m_usesZimg = false;     ///< as mpv was told last
    QByteArray m_decoder;        ///< how mpv says that the movie is decoded; empty until it is known
    bool m_isIdle = true;        ///< mpv shows no frames: paused, seeking or waiting for data
    bool m_decodesSound = false; ///< as mpv was told last
    QElapsedTimer m_round;       ///< since it began anew by itself last
    int m_roundsInVain = 0;      ///< so often it began anew, one after the other, and played nothing
    int m_loggedLines = 0;

    std::unique_ptr<MpvHandle> m_handle; ///< goes first: no notice comes after it
};

} // namespace kestro
