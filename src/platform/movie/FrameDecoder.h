#pragma once

#include "platform/movie/AvInput.h"
#include "platform/movie/MovieFacts.h"

#include <functional>
#include <memory>

struct AVCodecContext;
struct AVFrame;
struct AVPacket;

namespace kestro {

struct FreeAv {
    void operator()(AVCodecContext* codec) const;
    void operator()(AVFrame* frame) const;
    void operator()(AVPacket* packet) const;
};

/// A decoded frame as libavcodec gives it.
using Frame = std::unique_ptr<AVFrame, FreeAv>;

/// The video of one movie, frame after frame in the order of their times, from wherever it is sent.
/// Owned by one who wants frames; one thread at a time. Times are stamps of the video.
/// Tested by ReverseDecoderTest.
class FrameDecoder final {
public:
    /// What frames are for: frames now and then, which need not be smooth to the last, or to be shown as
    /// they would be forwards, from groups that may have to be decoded several times.
    enum class Use { Stills, Backwards };
    /// Opens `url`. `interrupt` must outlive the decoder.
    [[nodiscard]] static Result<std::unique_ptr<FrameDecoder>, MovieFault>
    open(const QUrl& url, AvInterrupt& interrupt, Use use);

    [[nodiscard]] const AvInput& input() const { return *m_input; }
    [[nodiscard]] const MovieFacts& facts() const { return m_facts; }
    [[nodiscard]] double secondsOf(const AVFrame& frame) const;

    /// Goes to the last keyframe that the container knows at or before `stamp`, or else the first one behind
    /// it. False when that cannot be done.
    [[nodiscard]] bool seek(std::int64_t stamp);
    /// Reads the next packet of the video; it is decoded next, unless another is read before. Null
    /// when there is none.
    [[nodiscard]] const AVPacket* read();
    /// Whether reading ended at something else than the end.
    [[nodiscard]] bool brokeOff() const { return m_brokeOff; }

    /// Told of each packet before it is decoded; answers whether its frame may be left out where no other
    /// frame needs it.
    using MayLeaveOut = std::function<bool(const AVPacket&)>;
    /// The next frame; null at the end, or when interrupted.
    [[nodiscard]] Frame next(const MayLeaveOut& mayLeaveOut);
    /// Whether the last frame was given.
    [[nodiscard]] bool isAtEnd() const { return m_atEnd; }

private:
    explicit FrameDecoder(AvInterrupt& interrupt)
        : m_interrupt(interrupt)
    {
    }
    [[nodiscard]] Result<void, MovieFault> openCodec(Use use);
    [[nodiscard]] bool feed(const MayLeaveOut& mayLeaveOut);
    void forgetPacket();

    AvInterrupt& m_interrupt;
    std::unique_ptr<AvInput> m_input;
    MovieFacts m_facts;
    std::unique_ptr<AVCodecContext, FreeAv> m_codec;
    std::unique_ptr<AVPacket, FreeAv> m_packet;
    bool m_hasPacket = false; ///< one that was read and not decoded
    bool m_brokeOff = false;
    bool m_atEnd = false;
};

} // namespace kestro
