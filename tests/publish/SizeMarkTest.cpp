#include "publish/SizeMark.h"

#include <gtest/gtest.h>

namespace kestro {
namespace {

struct MarkCase {
    const char* name;
    const char* base;
    int number;
    bool isPlain;
};

class SizeMarkOf : public testing::TestWithParam<MarkCase> {};

TEST_P(SizeMarkOf, isFound_whenTheNameEndsInOne)
{
    const auto mark = sizeMark(QString::fromUtf8(GetParam().name));
    ASSERT_TRUE(mark.has_value());
    EXPECT_EQ(mark->base, QString::fromUtf8(GetParam().base));
    EXPECT_EQ(mark->number, GetParam().number);
    EXPECT_EQ(mark->isPlain, GetParam().isPlain);
}

INSTANTIATE_TEST_SUITE_P(
    Names, SizeMarkOf,
    testing::Values(MarkCase{"t_480", "t", 480, true}, MarkCase{"Big Film-1080p", "Big Film", 1080, false},
                    MarkCase{"Big Film (720p)", "Big Film", 720, false},
                    MarkCase{"film(480)", "film", 480, true}, MarkCase{"film.h640w", "film", 640, false},
                    MarkCase{"film 640x272", "film", 640, false}, MarkCase{"film_HD", "film", 0, false},
                    MarkCase{"480", "", 480, true}, MarkCase{"[4k]", "", 0, false},
                    MarkCase{"Grüße_320", "Grüße", 320, true}));

TEST(SizeMark, isNone_whenTheNameEndsInSomethingElse)
{
    for (const char* name : {"waves", "waves2012", "waves_48", "waves_48000", "480 waves", "wavesHD", ""})
        EXPECT_FALSE(sizeMark(QString::fromUtf8(name)).has_value()) << name;
}

TEST(SizeMark, isSizeOf_knowsTheMoviesOwnSidesAndUsualSizes)
{
    EXPECT_TRUE(isSizeOf(714, 714, 300));
    EXPECT_TRUE(isSizeOf(300, 714, 300));
    EXPECT_TRUE(isSizeOf(480, 848, 352));
    EXPECT_FALSE(isSizeOf(2012, 848, 352));
}

} // namespace
} // namespace kestro
