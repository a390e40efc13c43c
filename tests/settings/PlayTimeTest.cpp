#include "settings/PlayTime.h"

#include <gtest/gtest.h>

namespace kestro {

static PlayTime timeOf(const char* word)
{
    return playTimeFrom(QString::fromUtf8(word)).value_or(PlayTime());
}

TEST(PlayTime, word_saysWhen)
{
    EXPECT_EQ(timeOf("day"), (PlayTime{PlayTime::Kind::Day}));
    EXPECT_EQ(timeOf("night"), (PlayTime{PlayTime::Kind::Night}));
    EXPECT_EQ(timeOf("8-17"), (PlayTime{PlayTime::Kind::Hours, 480, 1020}));
    EXPECT_EQ(timeOf("08:30-17:05"), (PlayTime{PlayTime::Kind::Hours, 510, 1025}));
    EXPECT_EQ(timeOf("22-6:15"), (PlayTime{PlayTime::Kind::Hours, 1320, 375}));
    EXPECT_EQ(timeOf("18-24"), (PlayTime{PlayTime::Kind::Hours, 1080, 0}));
}

TEST(PlayTime, word_isNone_whereItSaysNoTime)
{
    for (const char* word : {"", "always", "Day", "8", "8-", "-8", "8-8", "0-24", "25-3", "8:60-9", "8:5-9",
                             "8-9-10", "24:30-3", "100-3", "8 -9"})
        EXPECT_FALSE(playTimeFrom(QString::fromUtf8(word))) << word;
}

TEST(PlayTime, text_isReadBack)
{
    for (const char* word : {"day", "night", "08:00-17:00", "22:30-06:15", "18:00-00:00"})
        EXPECT_EQ(textOf(timeOf(word)), QString::fromUtf8(word));
    EXPECT_EQ(textOf(PlayTime()), QString());
}

TEST(PlayTime, hours_beginAndEndToTheMinute)
{
    const PlayTime hours = timeOf("8:30-17");
    for (const auto& [minute, isWithin] : {std::pair(509, false), std::pair(510, true), std::pair(1019, true),
                                           std::pair(1020, false), std::pair(0, false)})
        EXPECT_EQ(isWithinHours(hours, minute), isWithin) << minute;
}

TEST(PlayTime, hours_lastOverMidnight)
{
    const PlayTime hours = timeOf("22-6");
    for (const auto& [minute, isWithin] :
         {std::pair(1319, false), std::pair(1320, true), std::pair(1439, true), std::pair(0, true),
          std::pair(359, true), std::pair(360, false)})
        EXPECT_EQ(isWithinHours(hours, minute), isWithin) << minute;
}

} // namespace kestro
