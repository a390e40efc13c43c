#include "platform/base/RepeatedLines.h"

#include "platform/base/Bounds.h"

#include <gtest/gtest.h>
#include <string>

namespace kestro {

namespace {

constexpr double span = RepeatedLines::span;
const QString a = QStringLiteral("a");
const QString b = QStringLiteral("b");

std::string joined(const QStringList& lines)
{
    return lines.join(u'|').toStdString();
}

} // namespace

TEST(RepeatedLines, take_tellsALineAtOnce_whenItComesFirst)
{
    RepeatedLines lines;
    EXPECT_EQ(joined(lines.take(a, 0)), "a");
    EXPECT_EQ(joined(lines.take(b, 0)), "b");
}

TEST(RepeatedLines, take_holdsALineBack_untilItsMinuteIsOver)
{
    RepeatedLines lines;
    EXPECT_EQ(joined(lines.take(a, 10)), "a");
    EXPECT_EQ(joined(lines.take(a, 10)), "");
    EXPECT_EQ(joined(lines.take(a, 10 + span - 0.001)), "");
}

TEST(RepeatedLines, take_tellsALineOnceAMinuteWithItsCount_whenItGoesOnComing)
{
    RepeatedLines lines;
    std::string told;
    for (int second = 0; second < 3 * span + 1; ++second)
        told += joined(lines.take(a, second)) + ";";
    QStringList written = QString::fromStdString(told).split(u';', Qt::SkipEmptyParts);
    EXPECT_EQ(joined(written), "a|a (60 times)|a (60 times)|a (60 times)");
}

TEST(RepeatedLines, take_tellsALineAsItIs_whenItComesOnceAfterItsMinute)
{
    RepeatedLines lines;
    EXPECT_EQ(joined(lines.take(a, 0)), "a");
    EXPECT_EQ(joined(lines.take(a, span)), "a");
    EXPECT_EQ(joined(lines.take(a, span)), "");
}

TEST(RepeatedLines, take_tellsWhatWasHeldBack_whenAnotherLineComesLater)
{
    RepeatedLines lines;
    for (int times = 0; times < 4; ++times)
        static_cast<void>(lines.take(a, 0));
    EXPECT_EQ(joined(lines.take(b, span - 1)), "b");
    EXPECT_EQ(joined(lines.take(QStringLiteral("c"), span)), "a (3 times)|c");
    EXPECT_EQ(joined(lines.take(a, span + 1)), "");
}

TEST(RepeatedLines, take_keepsAnotherLinesMinute_whenOneIsTold)
{
    RepeatedLines lines;
    static_cast<void>(lines.take(a, 0));
    static_cast<void>(lines.take(b, 30));
    EXPECT_EQ(joined(lines.take(b, span)), "");
    EXPECT_EQ(joined(lines.take(b, 30 + span)), "b (2 times)");
}

TEST(RepeatedLines, take_forgetsTheOldest_whenItRemembersTooMany)
{
    RepeatedLines lines;
    static_cast<void>(lines.take(a, 0));
    static_cast<void>(lines.take(a, 0));
    for (std::size_t other = 1; other < Bounds::rememberedLogLines; ++other)
        EXPECT_EQ(lines.take(QString::number(other), 1).size(), 1);
    EXPECT_EQ(joined(lines.take(b, 1)), "a|b");
    EXPECT_EQ(joined(lines.take(a, 1)), "a");
    EXPECT_EQ(joined(lines.take(b, 1)), "");
}

} // namespace kestro
