#include "settings/MovieOptions.h"

#include "platform/base/ConfigurationFile.h"
#include "platform/base/Log.h"

#include <gtest/gtest.h>

namespace kestro {

static double dissolveOf(const QByteArray& text)
{
    return movieOptionsFrom(ConfigurationFile(text, QStringLiteral("conf"))).dissolveSeconds;
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

TEST(MovieOptions, unknownKeys_areSaid)
{
    QStringList said;
    const LogCapture capture([&](const QString& line) { said.append(line); });
    EXPECT_EQ(dissolveOf("[movies]\nresolve=1\n"), 0);
    EXPECT_EQ(said, QStringList(QStringLiteral("conf, line 2: unknown key \"resolve\".")));
}

} // namespace kestro
