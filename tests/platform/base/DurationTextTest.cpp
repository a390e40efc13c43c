#include "platform/base/DurationText.h"

#include <gtest/gtest.h>

namespace kestro {

TEST(DurationText, durationText_hasHours_whereThereAreAny)
{
    EXPECT_EQ(durationText(0), QStringLiteral("0:00"));
    EXPECT_EQ(durationText(65), QStringLiteral("1:05"));
    EXPECT_EQ(durationText(3599), QStringLiteral("59:59"));
    EXPECT_EQ(durationText(3723), QStringLiteral("1:02:03"));
    EXPECT_EQ(durationText(360000), QStringLiteral("100:00:00"));
}

} // namespace kestro
