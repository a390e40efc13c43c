#include "platform/movie/DecoderMemory.h"

#include "platform/movie/AvFormat.h"
#include "platform/movie/MovieFacts.h"

#include <algorithm>

namespace kestro {

// Decoders work in blocks and with edges.
static constexpr int block = 128;
static constexpr qint64 bitsOfByte = 8;
// The room for kept frames of the levels of H.264 that its sizes need (its table A-1), in pixels.
static constexpr qint64 pixelsOfLevel51 = 36864LL * 256;
static constexpr qint64 roomOfLevel51 = 184320LL * 256;
static constexpr qint64 roomOfLevel62 = 696320LL * 256;
static constexpr int mostOfH264 = 16;
static constexpr int mostOfLargeHEVC = 6;
static constexpr int mostOfVP9AndAV1 = 8;
static constexpr int mostOfOlder = 2;

static qint64 inBlocks(int pixels)
{
    return (qint64{pixels} + block - 1) / block * block;
}

static qint64 pixelsOf(const MovieFacts& facts)
{
    const bool isKnown = facts.codedWidth > 0 && facts.codedHeight > 0;
    return isKnown ? inBlocks(facts.codedWidth) * inBlocks(facts.codedHeight) : 0;
}

int keptFrames(int codec, qint64 pixels)
{
    const AVCodecDescriptor* const kind = avcodec_descriptor_get(static_cast<AVCodecID>(codec));
    if (kind && kind->props & AV_CODEC_PROP_INTRA_ONLY) return 0;
    switch (codec) {
    case AV_CODEC_ID_H264: {
        const qint64 room = pixels <= pixelsOfLevel51 ? roomOfLevel51 : roomOfLevel62;
        return static_cast<int>(std::clamp<qint64>(room / std::max<qint64>(pixels, 1), 1, mostOfH264));
    }
    case AV_CODEC_ID_HEVC:
    case AV_CODEC_ID_VVC:
        return mostOfLargeHEVC;
    case AV_CODEC_ID_VP9:
    case AV_CODEC_ID_AV1:
        return mostOfVP9AndAV1;
    default:
        return mostOfOlder;
    }
}

qint64 decoderBytes(const MovieFacts& facts, int threads)
{
    const qint64 bytesOfOne = pixelsOf(facts) * facts.bitsPerPixel / bitsOfByte;
    return bytesOfOne * (facts.keptFrames + threads + 1);
}

int threadsThatFit(const MovieFacts& facts, int wished)
{
    int threads = wished;
    while (threads > 1 && decoderBytes(facts, threads) > Bounds::decoderBytes)
        --threads;
    return threads;
}

Result<void, MovieFault> checkSize(const MovieFacts& facts)
{
    const bool isTooWide = std::max(facts.codedWidth, facts.codedHeight) > Bounds::movieSide;
    if (!isTooWide && decoderBytes(facts, 1) <= Bounds::decoderBytes) return {};
    return MovieFault{MovieFault::Kind::TooLarge,
                      QStringLiteral("%1x%2").arg(facts.codedWidth).arg(facts.codedHeight)};
}

qint64 mostFramePixels(const MovieFacts& facts)
{
    return std::max(pixelsOf(facts), Bounds::pixelsOfAnyStream);
}

void prepareLibav()
{
    av_max_alloc(Bounds::decoderAllocation);
    av_log_set_level(AV_LOG_QUIET);
}

} // namespace kestro
