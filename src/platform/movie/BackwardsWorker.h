#pragma once

#include "platform/movie/ReverseDecoder.h"

#include <condition_variable>
#include <functional>
#include <mutex>
#include <variant>

namespace kestro {

/// Decodes a movie backwards, ahead of a BackwardsPlayer that takes the frames one by one. Shared by the
/// player and the thread that runs it, which may outlive the player. Seconds; all but run() on the main
/// thread. Tested by BackwardsPlayerTest.
class BackwardsWorker final {
public:
    /// `changed` is called on the worker's thread each time there may be something to take where there was
    /// nothing.
    BackwardsWorker(std::unique_ptr<ReverseDecoder> decoder, std::shared_ptr<FrameMemory> memory,
                    std::function<void()> changed);

    /// What it does until quit(); by its own thread.
    void run();
    /// Lets go of all frames and begins anew with the one that shows at `seconds`.
    void startAt(double seconds);
    /// Pixels that frames are drawn with; those that are decoded from now on are kept no larger.
    void setDrawnSize(QSize size);
    /// Lets go of all frames and rests.
    void rest();
    /// Ends run() at once. `changed` is not called any more.
    void quit();

    struct NotYet {};
    struct Beginning {};
    /// The next frame backwards, or why there is none: it is not decoded yet, the beginning was reached, or
    /// the movie cannot be read.
    using Taken = std::variant<KeptFrame, NotYet, Beginning, Error>;
    [[nodiscard]] Taken take();
    /// Whether take() would answer anything but NotYet.
    [[nodiscard]] bool hasAnswer();

private:
    /// What is asked of it: to decode from there, unless resting.
    struct Order {
        double start = 0;
        bool rests = true;
        bool isNew = false;
        std::stop_source stop{};
    };

    void give(Order order);
    [[nodiscard]] bool mayDecode() const;
    [[nodiscard]] bool isEnough() const;
    void decode(std::unique_lock<std::mutex>& lock);
    void store(Result<ReverseDecoder::Frames> frames);

    const std::unique_ptr<ReverseDecoder> m_decoder; ///< used by run() alone
    const std::shared_ptr<FrameMemory> m_memory;
    std::function<void()> m_changed;
    std::mutex m_mutex; ///< of all below and of m_changed
    std::condition_variable_any m_wakeUp;
    Order m_order;
    QSize m_drawn;
    double m_longestDecoding = 0; ///< of one stretch
    bool m_quits = false;
    ReverseDecoder::Frames m_frames;                 ///< the earliest first
    std::variant<NotYet, Beginning, Error> m_behind; ///< what comes when all are taken
};

} // namespace kestro
