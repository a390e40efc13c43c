#include "settings/MovieOptions.h"

#include "platform/base/ConfigurationFile.h"
#include "platform/base/Log.h"

#include <gtest/gtest.h>

namespace kestro {

static double dissolveOf(const QByteArray& text)
{
    return movieOptionsFrom(ConfigurationFile(text, QStringLiteral("conf"))).dissolveSeconds;
}

static MovieOptions optionsOf(const char* line)
{
    return movieOptionsFrom(
        ConfigurationFile(QByteArray("[movies]\n") + line + "\n", QStringLiteral("conf")));
}

TEST(MovieOptions, dissolve_isWhatTheFileSays)
{
    EXPECT_EQ(dissolveOf({}), 0);
    EXPECT_EQ(dissolveOf("[movies]\ndissolve=1.5\n"), 1.5);
    EXPECT_EQ(dissolveOf("[movies]\ndissolve=10\n"), 10);
    EXPECT_EQ(dissolveOf("[idle]\ndissolve=10\n"), 0);
}

TEST(MovieOptions, dissolve_isNone_withALine_whereItIsNotUnderstood)
{
    for (const char* text : {"soon", "-1", "10.1", "nan", "inf", ""}) {
        QStringList said;
        const LogCapture capture([&](const QString& line) { said.append(line); });
        EXPECT_EQ(dissolveOf(QByteArray("[movies]\ndissolve=") + text + "\n"), 0) << text;
        EXPECT_EQ(said,
                  QStringList(QStringLiteral("conf, line 2: \"%1\" is no number of seconds from 0 to 10.")
                                  .arg(QLatin1String(text))));
    }
}

TEST(MovieOptions, longest_isInMinutes_orInSeconds)
{
    struct Case {
        const char* text;
        double seconds;
    };
    for (const Case& c :
         {Case{"", 0}, Case{"longest=5", 300}, Case{"longest=0.5", 30}, Case{"longest=90s", 90},
          Case{"longest=90 s", 90}, Case{"longest=0", 0}, Case{"longest=1440", 86400}})
        EXPECT_EQ(optionsOf(c.text).longestSeconds, c.seconds) << c.text;
}

TEST(MovieOptions, start_isTheBeginning_orSomewhere)
{
    EXPECT_FALSE(optionsOf("").startsAnywhere);
    EXPECT_FALSE(optionsOf("start=beginning").startsAnywhere);
    EXPECT_TRUE(optionsOf("start=random").startsAnywhere);
}

TEST(MovieOptions, shuffle_isRandom_orABagThatIsRemembered)
{
    EXPECT_FALSE(optionsOf("").remembersShuffle);
    EXPECT_FALSE(optionsOf("shuffle=random").remembersShuffle);
    EXPECT_TRUE(optionsOf("shuffle=bag").remembersShuffle);
}

TEST(MovieOptions, whatIsNotUnderstood_isSaid_andCountsAsNotWritten)
{
    for (const char* text : {"longest=long", "longest=-1", "longest=1441", "longest=86401s", "longest=s",
                             "longest=5m", "longest=", "start=end", "start=", "shuffle=yes"}) {
        QStringList said;
        const LogCapture capture([&](const QString& line) { said.append(line); });
        const MovieOptions options = optionsOf(text);
        EXPECT_EQ(options.longestSeconds, 0) << text;
        EXPECT_FALSE(options.startsAnywhere || options.remembersShuffle) << text;
        ASSERT_EQ(said.size(), 1) << text;
        EXPECT_TRUE(said[0].startsWith("conf, line 2: \"")) << text;
    }
}

TEST(MovieOptions, unknownKeys_areSaid)
{
    QStringList said;
    const LogCapture capture([&](const QString& line) { said.append(line); });
    EXPECT_EQ(dissolveOf("[movies]\nresolve=1\n"), 0);
    EXPECT_EQ(said, QStringList(QStringLiteral("conf, line 2: unknown key \"resolve\".")));
}

} // namespace kestro
