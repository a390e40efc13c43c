#pragma once

#include "platform/display/view/Picture.h"
#include "platform/movie/FrameDecoder.h"
#include "platform/movie/StillScaler.h"

#include <QSize>
#include <QUrl>

#include <chrono>
#include <memory>
#include <mutex>
#include <stop_token>

namespace kestro {

/// Frames of one movie at any time of it, with a decoder of its own that is opened for the first of them.
/// Frames are exact: the one that is showing at that time. Any thread, one at a time (others wait).
/// Destroying it ends what is being decoded.
class StillDecoder final {
public:
    explicit StillDecoder(QUrl url);
    ~StillDecoder();
    StillDecoder(const StillDecoder&) = delete;
    StillDecoder& operator=(const StillDecoder&) = delete;

    /// Pixels of the frames; an empty size stands for the natural one.
    void setSize(QSize size);

    /// The frame `seconds` into the movie, the last one when past its end. Null when it cannot be had, not
    /// within `longest` (a server that does not answer would keep its thread for good), or when told to stop.
    [[nodiscard]] Picture picture(double seconds,
                                  std::chrono::milliseconds longest = std::chrono::seconds(10),
                                  std::stop_token stop = {});

private:
    [[nodiscard]] bool isOpen();
    [[nodiscard]] bool moveTo(double seconds);
    [[nodiscard]] bool isForwardCheaper(double seconds) const;
    [[nodiscard]] bool decodeFrom(double start, double seconds);
    [[nodiscard]] bool seek(double seconds);
    void stepTo(double seconds);
    [[nodiscard]] bool takeNext(double seconds);
    [[nodiscard]] bool isEarly(const AVPacket& packet, double seconds) const;
    [[nodiscard]] double insideMovie(double seconds) const;
    [[nodiscard]] QSize pictureSize();

    const QUrl m_url;
    std::mutex m_mutex;
    AvInterrupt m_interrupt;
    std::mutex m_sizeMutex; ///< of the next: the main thread sets it while another decodes
    QSize m_size;
    bool m_tried = false;
    std::unique_ptr<FrameDecoder> m_decoder; ///< null until opened, and when that failed
    Frame m_current;                         ///< the frame that is showing at the time asked for last
    Frame m_next;                            ///< the one after it, where it was decoded already
    StillScaler m_scaler;
};

} // namespace kestro
