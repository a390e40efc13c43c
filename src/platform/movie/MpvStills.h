#pragma once

#include "platform/movie/ShownFrame.h"
#include "platform/movie/StillDecoder.h"
#include "platform/movie/StillMovie.h"

#include <QSize>

#include <atomic>
#include <chrono>
#include <memory>
#include <utility>

namespace kestro {

/// Stills of a real movie. The frame that it shows is drawn once more, where the size of stills was set;
/// any other is decoded, by a decoder of their own that is opened for the first of them. As StillMovie says.
class MpvStills final : public StillMovie {
public:
    /// Each still may take `longest`.
    MpvStills(std::shared_ptr<ShownFrame> shown, const QUrl& url, std::chrono::milliseconds longest)
        : m_shown(std::move(shown))
        , m_decoder(url)
        , m_longest(longest)
    {
    }

    void setStillSize(int width, int height) override
    {
        m_size = QSize(width, height);
        m_decoder.setSize({width, height});
    }

    [[nodiscard]] Picture still(MovieTime time, std::stop_token stop) override
    {
        const double seconds = secondsFromMovieTime(time);
        Picture shown = m_shown->picture(seconds, m_size);
        return shown.isNull() ? m_decoder.picture(seconds, m_longest, std::move(stop)) : shown;
    }

private:
    const std::shared_ptr<ShownFrame> m_shown;
    std::atomic<QSize> m_size{QSize()};
    StillDecoder m_decoder;
    const std::chrono::milliseconds m_longest;
};

} // namespace kestro
