#pragma once

#include "platform/display/Geometry.h"
#include "platform/movie/MpvHandle.h"
#include "platform/movie/MpvMovieOptions.h"

#include <QObject>
#include <QTimer>
#include <QUrl>

#include <atomic>
#include <memory>

namespace kestro {

/// What a player is started with.
struct MpvPlayerSetup {
    QUrl url;
    MpvMovieOptions options;
    double start = 0;          ///< seconds
    double pictureSeconds = 0; ///< from one picture to the next, 0 when it varies
    int rotation = 0;          ///< degrees clockwise that turn it upright; a remote movie's is found out
    int decoderThreads = 1;
    bool reversible = false; ///< made to play backwards as well; costs read-ahead
    bool hasSound = true;
    bool muted = false; ///< sound is not even decoded until unmuted
    double volume = 1;
    std::shared_ptr<OpenGL> openGL = {}; ///< to draw with; null for software
};

/// Hears from a player, on the main thread. May destroy it in any of these.
class MpvPlayerListener {
public:
    virtual void playerHasPicture() = 0;
    /// Its numbers are known.
    virtual void playerIsLoaded() = 0;
    /// Came to the end it was going to. It stands there.
    virtual void playerReachedEnd() = 0;
    /// Broke off before there was a picture; final.
    virtual void playerFailed() = 0;

protected:
    ~MpvPlayerListener() = default;
};

/// Plays one movie with libmpv: starts standing, at the place it is given. Its questions are answered from
/// what mpv told last, never by asking. Owned by MpvMovie; main thread; seconds.
class MpvPlayer final : public QObject {
public:
    /// Null when mpv cannot be had.
    [[nodiscard]] static std::unique_ptr<MpvPlayer> start(const MpvPlayerSetup& setup,
                                                          MpvPlayerListener& listener);

    void setPaused(bool paused);
    void seek(double seconds);
    void setLooping(bool looping);
    /// Only where made reversible.
    void setBackwards(bool backwards);
    void setMuted(bool muted);
    void setVolume(double volume);
    /// Loads the movie anew so that it can be played backwards, standing where it stands.
    void makeReversible();
    [[nodiscard]] bool isReversible() const { return m_setup.reversible; }

    /// Where it is; where it was sent, until it plays on from there.
    [[nodiscard]] double position() const { return m_position; }
    /// Whether the numbers below are known.
    [[nodiscard]] bool isLoaded() const { return m_loaded; }
    [[nodiscard]] double duration() const { return m_duration; }
    [[nodiscard]] Size naturalSize() const;

    [[nodiscard]] bool hasPicture() const { return m_hasPicture; }
    bool render(const PixelTarget& target);
    [[nodiscard]] bool drawsWithOpenGL() const { return m_handle->drawsWithOpenGL(); }
    bool renderWithOpenGL(const FramebufferTarget& target);
    /// Whether it cannot draw any more and is to be replaced: the OpenGL that it drew with was lost.
    [[nodiscard]] bool isCutOff() const { return m_handle->isCutOff(); }

private:
    MpvPlayer(const MpvPlayerSetup& setup, MpvPlayerListener& listener, std::unique_ptr<MpvHandle> handle);

    void load(double start);
    void wake();
    void drain();
    void handle(const mpv_event& event);
    void handleProperty(const mpv_event& event);
    void handleReply(const mpv_event& event);
    void handleLoaded();
    void handleSeek();
    void handleRestart();
    void reachEnd();
    void handleEnd(const mpv_event_end_file& end);
    void handleHook(const mpv_event_hook& hook);
    void handleLog(const mpv_event_log_message& message);
    void takePicture();
    void noteDrawing();
    void dropUnwatched();
    void showPicture();
    void loadReversible();
    void beginMove(double to);
    void arrive();
    [[nodiscard]] QByteArray mpvTarget(double seconds) const;
    [[nodiscard]] std::uint64_t ofThisMove(std::uint64_t id) const;
    void askWhetherEnded();
    void fail();
    [[nodiscard]] bool isRemote() const { return !m_setup.url.isLocalFile(); }

    MpvPlayerSetup m_setup;
    MpvPlayerListener& m_listener;
    QTimer m_unwatchedTimer; ///< runs while a picture waits to be drawn
    QTimer m_loadTimer;      ///< bounds the loading of a remote movie
    QTimer m_moveTimer;      ///< bounds a move that mpv never ends
    std::atomic<bool> m_woken{false};

    double m_position = 0;
    double m_target = 0; ///< where it was sent last
    double m_duration = 0;
    double m_width = 0;
    double m_height = 0;
    double m_seekWhenLoaded = -1; ///< negative: none
    std::uint32_t m_moves = 0; ///< counts seeks and turns, so that an answer from before one is known as such
    int m_loggedLines = 0;
    bool m_paused = true;
    bool m_silent = false;   ///< sound is not decoded
    bool m_sent = false;     ///< the position is where it was sent, and it has not played on since
    bool m_moving = false;   ///< on its way to the position
    bool m_accepted = false; ///< mpv has taken the last order to move
    bool m_underway = false; ///< and carries it out
    bool m_fileLoaded = false;
    bool m_loaded = false;
    bool m_hasPicture = false;
    bool m_pictureWaits = false; ///< there is one that may be of before the place it was sent to
    bool m_failed = false;
    bool m_unwatched = false; ///< nobody drew the last picture

    std::unique_ptr<MpvHandle> m_handle; ///< goes first: no notice comes after it
};

} // namespace kestro
