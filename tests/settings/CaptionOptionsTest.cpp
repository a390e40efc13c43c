#include "settings/CaptionOptions.h"

#include "platform/base/ConfigurationFile.h"
#include "platform/base/Log.h"

#include <gtest/gtest.h>

namespace kestro {

static CaptionOptions optionsOf(const QByteArray& text)
{
    return CaptionOptions::from(ConfigurationFile(text, QStringLiteral("conf")));
}

TEST(CaptionOptions, areNone_whenNothingIsChosen)
{
    EXPECT_TRUE(optionsOf({}).isNone());
    EXPECT_TRUE(optionsOf("[caption]\ntitle=no\nclock=no\n").isNone());
}

TEST(CaptionOptions, areWhatTheFileSays)
{
    const auto title = optionsOf("[caption]\ntitle=yes\n");
    EXPECT_TRUE(title.showsTitle);
    EXPECT_FALSE(title.showsClock);
    const auto clock = optionsOf("[caption]\nclock=yes\n");
    EXPECT_FALSE(clock.showsTitle);
    EXPECT_TRUE(clock.showsClock);
}

TEST(CaptionOptions, keyThatIsUnknown_isLogged)
{
    QStringList said;
    const LogCapture capture([&](const QString& line) { said.append(line); });
    EXPECT_TRUE(optionsOf("[caption]\ndate=yes\n").isNone());
    EXPECT_EQ(said, QStringList{QStringLiteral("conf, line 2: unknown key \"date\".")});
}

} // namespace kestro
