#include "idle/PowerOptions.h"

#include "platform/base/ConfigurationFile.h"
#include "platform/base/Log.h"

#include <gtest/gtest.h>

namespace kestro {

namespace {

PowerRule ruleOf(const QByteArray& text)
{
    return powerRuleFrom(ConfigurationFile(text, QStringLiteral("conf")));
}

} // namespace

TEST(PowerOptions, areTheUsual_whenNothingIsChosen)
{
    EXPECT_EQ(ruleOf({}), PowerRule());
    EXPECT_EQ(PowerRule().onBattery, PowerChoice::Play);
    EXPECT_EQ(PowerRule().whenLow, PowerChoice::Off);
    EXPECT_EQ(PowerRule().lowPercent, 20);
}

TEST(PowerOptions, areWhatTheFileSays)
{
    const PowerRule rule = ruleOf("[power]\non-battery=off\nwhen-low=play\nlow=35\nin-power-saver=still\n");
    EXPECT_EQ(rule.onBattery, PowerChoice::Off);
    EXPECT_EQ(rule.whenLow, PowerChoice::Play);
    EXPECT_EQ(rule.lowPercent, 35);
    EXPECT_EQ(rule.inPowerSaver, PowerChoice::Still);
}

TEST(PowerOptions, areTheUsual_withALine_whereTheFileIsNotUnderstood)
{
    QStringList said;
    const LogCapture capture([&](const QString& line) { said.append(line); });
    EXPECT_EQ(ruleOf("[power]\non-battery=perhaps\nlow=101\nlid=off\n"), PowerRule());
    EXPECT_EQ(said, (QStringList{QStringLiteral("conf, line 4: unknown key \"lid\"."),
                                 QStringLiteral("conf, line 2: \"perhaps\" is neither play, still nor off."),
                                 QStringLiteral("conf, line 3: \"101\" is no number from 0 to 100.")}));
}

} // namespace kestro
