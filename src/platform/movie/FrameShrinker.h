#pragma once

#include "platform/movie/FrameDecoder.h"

#include <QSize>

struct SwsContext;

namespace kestro {

/// Makes frames that are to be kept no larger than they will be drawn. One thread at a time.
class FrameShrinker final {
public:
    FrameShrinker() = default;
    ~FrameShrinker();
    FrameShrinker(const FrameShrinker&) = delete;
    FrameShrinker& operator=(const FrameShrinker&) = delete;

    /// `frame` itself; where it has more than twice the pixels of `size`, a copy of about that size. An empty
    /// size leaves all frames as they are.
    [[nodiscard]] Frame shrunk(Frame frame, QSize size);

private:
    [[nodiscard]] Frame copyOf(const AVFrame& frame, QSize size);

    SwsContext* m_scaler = nullptr;
};

} // namespace kestro
