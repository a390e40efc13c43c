#pragma once

#include <QObject>
#include <QSize>
#include <QUrl>

#include <chrono>
#include <cstddef>
#include <memory>
#include <thread>

namespace kestro {

class BackwardsWorker;
class Clock;
class KeptFrame;
class FrameMemory;
class StillScaler;
class Timer;
class TimerSource;
struct PixelTarget;

/// What a movie is played backwards with.
struct BackwardsSetup {
    QUrl url;
    std::chrono::milliseconds longestRead = std::chrono::seconds(10);
    std::size_t mostBytes = 256'000'000; ///< of decoded frames that are kept
};

/// Hears from a BackwardsPlayer, on the main thread. May destroy it in any of these.
class BackwardsListener {
public:
    virtual void backwardsHasFrame() = 0;
    virtual void backwardsReachedBeginning() = 0;
    /// The movie cannot be played backwards, or not on; final.
    virtual void backwardsFailed(const QString& reason) = 0;

protected:
    ~BackwardsListener() = default;
};

/// Plays the video of one movie backwards, silently, each frame for as long as it shows forwards.
/// They are decoded ahead on a thread of its own; where that is late the frame stands, none is left out.
/// Owned by MpvMovie; main thread; seconds.
class BackwardsPlayer final {
public:
    BackwardsPlayer(const BackwardsSetup& setup, BackwardsListener& listener, const Clock& clock,
                    TimerSource& timers);
    ~BackwardsPlayer();
    BackwardsPlayer(const BackwardsPlayer&) = delete;
    BackwardsPlayer& operator=(const BackwardsPlayer&) = delete;

    /// Pixels that frames are drawn with, as far as is known before they are; larger ones are not kept.
    void setDrawnSize(QSize size);
    /// Stands at `seconds`, at or past the end at the last frame, and decodes what comes before.
    void prepare(double seconds);
    /// Lets go of all frames.
    void rest();
    /// Plays on backwards from where it stands, once its frame is decoded.
    void play();
    void pause();

    /// Where it was sent, until it plays on from there; then the time of the frame that shows.
    [[nodiscard]] double position() const { return m_position; }
    [[nodiscard]] bool hasFrame() const { return m_current != nullptr; }
    /// Whether its clock stands because the next frame is not decoded yet.
    [[nodiscard]] bool isLate() const { return m_isLate; }
    /// Draws the frame that shows, stretched. False, with the target untouched, when there is none.
    [[nodiscard]] bool render(const PixelTarget& target);
    /// The most bytes of decoded frames that were kept at once.
    [[nodiscard]] std::size_t peakBytes() const;

private:
    void startWorker(const BackwardsSetup& setup);
    void workerHasAnswer();
    void timeIsUp();
    void step();
    void wait();
    void show(KeptFrame picture);
    void comeToBeginning();
    void fail(const QString& reason);
    void forget(double seconds);
    void schedule();
    [[nodiscard]] double here() const;
    [[nodiscard]] double nextStep() const;
    [[nodiscard]] bool isOverdue() const;

    BackwardsListener& m_listener;
    const Clock& m_clock;
    TimerSource& m_timers;
    const std::shared_ptr<FrameMemory> m_memory;
    const std::unique_ptr<StillScaler> m_scaler;
    std::shared_ptr<BackwardsWorker> m_worker;
    std::thread m_thread;       ///< runs the worker
    const double m_longestWait; ///< for a frame, while it plays
    std::unique_ptr<Timer> m_timer;
    std::unique_ptr<KeptFrame> m_current; ///< the one that shows
    double m_position = 0;
    double m_since = 0; ///< where the clock stood when it was started last
    double m_start = 0; ///< and the time of that
    bool m_plays = false;
    bool m_isLate = false;
    bool m_isFirst = false; ///< no frame comes before the current one
    QObject m_context;      ///< what is posted to this player goes with it
};

} // namespace kestro
