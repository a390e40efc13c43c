#include "platform/movie/DecoderThreads.h"

#include "platform/movie/MovieFacts.h"
#include "platform/movie/MpvOptions.h"
#include "platform/movie/MpvPlayer.h"

#include <algorithm>
#include <gtest/gtest.h>

using namespace kestro;

namespace {

struct Case {
    int width, height;
    double framesPerSecond;
    bool hasNewerCodec;
    int cores;
    int threads;
};

} // namespace

class DecoderThreads : public testing::TestWithParam<Case> {};

TEST_P(DecoderThreads, growWithTheWork_upToTheCores)
{
    const Case& c = GetParam();
    MovieFacts facts;
    facts.codedWidth = c.width;
    facts.codedHeight = c.height;
    facts.framesPerSecond = c.framesPerSecond;
    facts.hasNewerCodec = c.hasNewerCodec;
    EXPECT_EQ(decoderThreads(facts, c.cores), c.threads);
}
INSTANTIATE_TEST_SUITE_P(Movies, DecoderThreads,
                         testing::Values(Case{640, 360, 24, false, 8, 1}, Case{1920, 1080, 30, false, 8, 1},
                                         Case{1920, 1088, 30, false, 8, 1}, Case{1920, 1080, 50, false, 8, 2},
                                         Case{1920, 1080, 30, true, 8, 2}, Case{3840, 2160, 30, false, 8, 4},
                                         Case{3840, 2160, 60, true, 8, 8}, Case{3840, 2160, 60, true, 64, 16},
                                         Case{3840, 2160, 60, true, 2, 2}, Case{0, 0, 30, false, 8, 1},
                                         Case{640, 360, 24, false, -1, 1}));

TEST(DecoderThreads, areFourAtMost_ofAnUnknownMovie)
{
    EXPECT_EQ(decoderThreadsOfUnknown(16), 4);
    EXPECT_EQ(decoderThreadsOfUnknown(2), 2);
    EXPECT_EQ(decoderThreadsOfUnknown(-1), 1);
}

TEST(DecoderThreads, areWhatThePlayerIsMadeWith)
{
    MpvPlayerSetup setup;
    setup.decoderThreads = 3;
    const MpvHandle::Options options = mpvOptions(setup);
    const auto isThreads = [](const auto& option) {
        return QByteArrayView(option.first) == "vd-lavc-threads";
    };
    const auto found = std::find_if(options.begin(), options.end(), isThreads);
    ASSERT_NE(found, options.end());
    EXPECT_EQ(found->second, "3");
}
