#pragma once

#include "platform/movie/StillDecoder.h"
#include "platform/movie/StillMovie.h"

#include <chrono>
#include <utility>

namespace kestro {

/// Stills of a real movie, by a decoder of their own. As StillMovie says.
class DecodedStills final : public StillMovie {
public:
    /// Each still may take `longest`.
    DecodedStills(const QUrl& url, std::chrono::milliseconds longest)
        : m_decoder(url)
        , m_longest(longest)
    {
    }

    void setStillSize(int width, int height) override { m_decoder.setSize({width, height}); }

    [[nodiscard]] Picture still(MovieTime time, std::stop_token stop) override
    {
        return m_decoder.picture(secondsFromMovieTime(time), m_longest, std::move(stop));
    }

private:
    StillDecoder m_decoder;
    const std::chrono::milliseconds m_longest;
};

} // namespace kestro
