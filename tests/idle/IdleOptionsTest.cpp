#include "idle/IdleOptions.h"

#include "platform/base/ConfigurationFile.h"
#include "platform/base/Log.h"

#include <gtest/gtest.h>

namespace kestro {

using namespace std::chrono_literals;

namespace {

IdleOptions optionsOf(const QByteArray& text)
{
    return IdleOptions::from(ConfigurationFile(text, QStringLiteral("conf")));
}

} // namespace

TEST(IdleOptions, areOff_andFiveMinutes_whenNothingIsChosen)
{
    EXPECT_FALSE(optionsOf({}).isEnabled);
    EXPECT_EQ(optionsOf({}).after, 5min);
    EXPECT_EQ(optionsOf({}).stopAfter, 0s);
}

TEST(IdleOptions, areWhatTheFileSays)
{
    const IdleOptions options = optionsOf("[idle]\nenabled=yes\nafter=90s\nstop-after=30\n");
    EXPECT_EQ(options.stopAfter, 30min);
    EXPECT_TRUE(options.isEnabled);
    EXPECT_EQ(options.after, 90s);
}

TEST(IdleOptions, areTheUsual_withALine_whereTheFileIsNotUnderstood)
{
    QStringList said;
    const LogCapture capture([&](const QString& line) { said.append(line); });
    const IdleOptions options = optionsOf("[idle]\nenabled=perhaps\nafter=soon\nwhen=now\n");
    EXPECT_FALSE(options.isEnabled);
    EXPECT_EQ(options.after, 5min);
    EXPECT_EQ(said,
              (QStringList{QStringLiteral("conf, line 4: unknown key \"when\"."),
                           QStringLiteral("conf, line 2: \"perhaps\" is neither yes nor no."),
                           QStringLiteral("conf, line 3: \"soon\" is no time from 1s to 24h; write 5 for "
                                          "minutes, or 90s, 5m, 1h.")}));
}

TEST(IdleOptions, areReadBack_asTheyWerePut)
{
    ConfigurationFile file("[trailers]\nstart=http://h/\n", QStringLiteral("conf"));
    IdleOptions{true, 75s}.putInto(file);
    EXPECT_EQ(file.text(), "[trailers]\nstart=http://h/\n\n[idle]\nenabled=yes\nafter=75s\n");
    EXPECT_EQ(IdleOptions::from(file).after, 75s);
    IdleOptions{false, 10min}.putInto(file);
    EXPECT_EQ(file.text(), "[trailers]\nstart=http://h/\n\n[idle]\nenabled=no\nafter=10\n");
}

TEST(IdleOptions, end_isPutAndTakenBack_andStaysUnsaidWhereItWas)
{
    ConfigurationFile file("", QStringLiteral("conf"));
    IdleOptions{true, 5min, 20min}.putInto(file);
    EXPECT_EQ(IdleOptions::from(file).stopAfter, 20min);
    IdleOptions{true, 5min, 0s}.putInto(file);
    EXPECT_EQ(file.text(), "[idle]\nenabled=yes\nafter=5\nstop-after=0\n");
    EXPECT_EQ(IdleOptions::from(file).stopAfter, 0s);
}

TEST(IdleOptions, endFrom_takesNeverToo)
{
    EXPECT_EQ(endFrom(QStringLiteral("0")).value(), 0s);
    EXPECT_EQ(endFrom(QStringLiteral("90s")).value(), 90s);
    EXPECT_FALSE(endFrom(QStringLiteral("0s")).isOk());
}

TEST(IdleOptions, spanFrom_takesEachUnit_upToADay)
{
    EXPECT_EQ(spanFrom(QStringLiteral("5")).value(), 5min);
    EXPECT_EQ(spanFrom(QStringLiteral("3s")).value(), 3s);
    EXPECT_EQ(spanFrom(QStringLiteral("2m")).value(), 2min);
    EXPECT_EQ(spanFrom(QStringLiteral("24h")).value(), 24h);
    for (const char* wrong : {"", "s", "0", "-1", "1.5", "25h", "1441", "9223372036854775807h", "5d"})
        EXPECT_FALSE(spanFrom(QString::fromUtf8(wrong)).isOk()) << wrong;
}

} // namespace kestro
