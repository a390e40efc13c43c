#include "host/commands/ConfigurationReport.h"

#include "host/session/SessionControl.h"
#include "idle/IdleOptions.h"
#include "idle/KeyOptions.h"
#include "idle/PowerOptions.h"
#include "idle/ScreensOptions.h"
#include "platform/base/ConfigurationFile.h"
#include "platform/base/Log.h"
#include "settings/CacheOptions.h"
#include "settings/CaptionOptions.h"
#include "settings/MovieOptions.h"
#include "settings/Sunlight.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace kestro {

static ConfigurationFile fileOf(const QByteArray& text)
{
    return {text, QStringLiteral("/c/kestro.conf")};
}

static QJsonObject reportOf(const QByteArray& text)
{
    return QJsonDocument::fromJson(configurationReport(fileOf(text), QStringLiteral("/c/kestro.conf"), {}))
        .object();
}

static QJsonObject told(const QByteArray& text, const char* section, const char* key)
{
    return reportOf(text)[QLatin1String(section)][QLatin1String(key)].toObject();
}

static QJsonObject answer(const char* value, const char* from)
{
    return {{QStringLiteral("value"), QLatin1String(value)}, {QStringLiteral("from"), QLatin1String(from)}};
}

TEST(ConfigurationReport, usualOfEachKey_isWhatCountsWithoutIt)
{
    ConfigurationFile usual = fileOf({});
    for (const ConfigurationKey& key : configurationKeys())
        usual.set(key.section, key.name, key.usual);
    QStringList said;
    const LogCapture capture([&](const QString& line) { said.append(line); });
    const ConfigurationFile none = fileOf({});
    EXPECT_EQ(IdleOptions::from(usual).isEnabled, IdleOptions::from(none).isEnabled);
    EXPECT_EQ(IdleOptions::from(usual).after, IdleOptions::from(none).after);
    EXPECT_EQ(IdleOptions::from(usual).stopAfter, IdleOptions::from(none).stopAfter);
    EXPECT_EQ(powerRuleFrom(usual), powerRuleFrom(none));
    EXPECT_EQ(screenChoiceFrom(usual), screenChoiceFrom(none));
    const MovieOptions movies = movieOptionsFrom(usual);
    EXPECT_EQ(movies.dissolveSeconds, MovieOptions().dissolveSeconds);
    EXPECT_EQ(movies.longestSeconds, MovieOptions().longestSeconds);
    EXPECT_EQ(movies.remembersShuffle, MovieOptions().remembersShuffle);
    EXPECT_EQ(movies.startsAnywhere, MovieOptions().startsAnywhere);
    EXPECT_EQ(cacheOptionsFrom(usual).bytes, cacheOptionsFrom(none).bytes);
    EXPECT_TRUE(CaptionOptions::from(usual).isNone());
    EXPECT_EQ(KeyOptions::from(usual).isEnabled, KeyOptions::from(none).isEnabled);
    EXPECT_EQ(placeFrom(usual), placeFrom(none));
    EXPECT_EQ(SessionControl::isWanted(usual), SessionControl::isWanted(none));
    EXPECT_EQ(said, QStringList());
}

TEST(ConfigurationReport, key_hasItsValueAndItsLine)
{
    EXPECT_EQ(told("[idle]\nafter=\"90s\"\n", "idle", "after"), answer("90s", "/c/kestro.conf:2"));
    EXPECT_EQ(told("[idle]\nafter=1\nafter=2\n", "idle", "after"), answer("2", "/c/kestro.conf:3"));
    EXPECT_EQ(told({}, "idle", "after"), answer("5", "default"));
    EXPECT_EQ(told("[trailers]\nstart=http://h/\"x\"\n", "trailers", "start"),
              answer("http://h/\"x\"", "/c/kestro.conf:2"));
}

TEST(ConfigurationReport, key_isTheUsual_whereItsValueIsNotUnderstood)
{
    const LogCapture capture([](const QString&) {});
    for (const auto& [line, section, key, usual] :
         {std::tuple("after=soon", "idle", "after", "5"),
          std::tuple("enabled=maybe", "idle", "enabled", "no"), std::tuple("low=150", "power", "low", "20"),
          std::tuple("mode=x", "screens", "mode", "each"),
          std::tuple("dissolve=x", "movies", "dissolve", "0"),
          std::tuple("latitude=x", "place", "latitude", ""), std::tuple("bus=x", "control", "bus", "no")})
        EXPECT_EQ(told(QByteArray("[") + section + "]\n" + line, section, key), answer(usual, "default"))
            << line;
}

TEST(ConfigurationReport, marks_areThoseThatAreUnderstood)
{
    const LogCapture capture([](const QString&) {});
    EXPECT_EQ(reportOf("[marks]\n1=star http://m/a\n2=moon http://m/b\n")[QStringLiteral("marks")]
                  .toObject()
                  .keys(),
              QStringList(QStringLiteral("1")));
    EXPECT_FALSE(reportOf({}).contains(QStringLiteral("marks")));
}

TEST(ConfigurationReport, keys_standOneALine)
{
    const QByteArray text = configurationReport(fileOf({}), {}, "  ");
    EXPECT_TRUE(text.contains(
        "\n      \"idle\": {\n          \"enabled\": {\"value\": \"no\", \"from\": \"default\"},\n"))
        << text.toStdString();
    EXPECT_TRUE(text.endsWith("\"from\": \"default\"}\n      }\n  }"));
}

} // namespace kestro
