#include "platform/movie/DecoderMemory.h"

#include "platform/base/Bounds.h"
#include "platform/movie/AvFormat.h"
#include "platform/movie/MovieFacts.h"
#include "platform/movie/MpvOptions.h"
#include "platform/movie/MpvPlayer.h"

#include <algorithm>
#include <gtest/gtest.h>

using namespace kestro;

namespace {

MovieFacts movieOf(int width, int height, AVCodecID codec = AV_CODEC_ID_H264, int bitsPerPixel = 12)
{
    MovieFacts facts;
    facts.codedWidth = width;
    facts.codedHeight = height;
    facts.bitsPerPixel = bitsPerPixel;
    facts.keptFrames = keptFrames(codec, qint64{width} * height);
    return facts;
}

MovieFault tooLarge(const char* size)
{
    return {MovieFault::Kind::TooLarge, QString::fromLatin1(size)};
}

} // namespace

TEST(DecoderMemory, checkSize_refusesAMovie_whenASideIsTooLong)
{
    EXPECT_TRUE(checkSize(movieOf(8192, 16)));
    EXPECT_EQ(checkSize(movieOf(8193, 16)).failure(), tooLarge("8193x16"));
    EXPECT_EQ(checkSize(movieOf(16, 8193)).failure(), tooLarge("16x8193"));
    EXPECT_EQ(checkSize(movieOf(16000, 16000)).failure(), tooLarge("16000x16000"));
}

TEST(DecoderMemory, checkSize_refusesAMovie_whenItsDecoderWouldNeedTooMuch)
{
    for (const AVCodecID codec : {AV_CODEC_ID_H264, AV_CODEC_ID_HEVC, AV_CODEC_ID_VP9, AV_CODEC_ID_AV1,
                                  AV_CODEC_ID_VP8, AV_CODEC_ID_MPEG4, AV_CODEC_ID_PRORES}) {
        EXPECT_TRUE(checkSize(movieOf(7680, 4320, codec))) << codec;
        EXPECT_TRUE(checkSize(movieOf(4096, 2304, codec, 24))) << codec;
    }
    EXPECT_TRUE(checkSize(movieOf(8192, 8192)));
    EXPECT_FALSE(checkSize(movieOf(8192, 8192, AV_CODEC_ID_VP9)));
    EXPECT_FALSE(checkSize(movieOf(8192, 8192, AV_CODEC_ID_H264, 24)));
}

TEST(DecoderMemory, checkSize_refusesNoMovie_whenItsSizeIsUnknown)
{
    EXPECT_TRUE(checkSize(movieOf(0, 0)));
    EXPECT_TRUE(checkSize(movieOf(-1, 100)));
}

TEST(DecoderMemory, threadsThatFit_areFewer_whenEachTakesMuch)
{
    EXPECT_EQ(threadsThatFit(movieOf(1920, 1080), 16), 16);
    EXPECT_EQ(threadsThatFit(movieOf(7680, 4320, AV_CODEC_ID_VP9), 16), 1);
    const MovieFacts large = movieOf(7680, 4320);
    const int threads = threadsThatFit(large, 16);
    EXPECT_GT(threads, 1);
    EXPECT_LE(decoderBytes(large, threads), Bounds::decoderBytes);
    EXPECT_GT(decoderBytes(large, threads + 1), Bounds::decoderBytes);
}

TEST(DecoderMemory, keptPictures_areNone_whenACodecMakesNoneOfOthers)
{
    EXPECT_EQ(keptFrames(AV_CODEC_ID_MJPEG, 1000), 0);
    EXPECT_EQ(keptFrames(AV_CODEC_ID_H264, 320 * 180), 16);
    EXPECT_EQ(keptFrames(AV_CODEC_ID_NONE, 1000), 2);
}

TEST(DecoderMemory, mostPicturePixels_areThoseOfALargeMovie_andOfAnyStreamElse)
{
    EXPECT_EQ(mostFramePixels(movieOf(320, 180)), Bounds::pixelsOfAnyStream);
    EXPECT_EQ(mostFramePixels(movieOf(0, 0)), Bounds::pixelsOfAnyStream);
    EXPECT_GE(mostFramePixels(movieOf(7680, 4320)), 7680LL * 4320);
}

TEST(DecoderMemory, player_isMadeWithTheBounds)
{
    MpvPlayerSetup setup;
    setup.mostFramePixels = 1234;
    const MpvHandle::Options options = mpvOptions(setup);
    const auto valueOf = [&options](QByteArrayView name) {
        const auto found = std::find_if(options.begin(), options.end(), [name](const auto& option) {
            return QByteArrayView(option.first) == name;
        });
        return found == options.end() ? QByteArray() : found->second;
    };
    EXPECT_EQ(valueOf("vd-lavc-o"), "max_pixels=1234");
    EXPECT_EQ(valueOf("demuxer-lavf-probesize"), "5000000");
    EXPECT_EQ(valueOf("demuxer-lavf-analyzeduration"), "5");
    EXPECT_TRUE(valueOf("demuxer-lavf-o").endsWith(",max_streams=64"));
}
