#include "idle/ScreensOptions.h"

#include "platform/base/ConfigurationFile.h"
#include "platform/base/Log.h"

#include <gtest/gtest.h>

namespace kestro {

namespace {

ScreenChoice choiceOf(const QByteArray& text)
{
    return screenChoiceFrom(ConfigurationFile(text, QStringLiteral("conf")));
}

} // namespace

TEST(ScreensOptions, areTheUsual_whenNothingIsChosen)
{
    EXPECT_EQ(choiceOf({}), ScreenChoice());
    EXPECT_EQ(choiceOf("[screens]\nmode=each\nmonitors=all\n"), ScreenChoice());
}

TEST(ScreensOptions, areWhatTheFileSays)
{
    EXPECT_EQ(choiceOf("[screens]\nmode=mirror\nmonitors=first\n"),
              (ScreenChoice{ScreensMode::Mirror, {MonitorChoice::Kind::First, {}}}));
    EXPECT_EQ(choiceOf("[screens]\nmode=span\nmonitors=DP-1\n"),
              (ScreenChoice{ScreensMode::Span, {MonitorChoice::Kind::Named, {QStringLiteral("DP-1")}}}));
}

TEST(ScreensOptions, areTheUsual_withALine_whereTheFileIsNotUnderstood)
{
    QStringList said;
    const LogCapture capture([&](const QString& line) { said.append(line); });
    EXPECT_EQ(choiceOf("[screens]\nmode=cube\nmonitors=,\nmonitor=DP-1\n"), ScreenChoice());
    EXPECT_EQ(said,
              (QStringList{QStringLiteral("conf, line 4: unknown key \"monitor\"."),
                           QStringLiteral("conf, line 2: \"cube\" is neither each, mirror nor span."),
                           QStringLiteral("conf, line 3: \",\" is neither all, first nor names with commas "
                                          "between them.")}));
}

TEST(ScreensOptions, areReadAsTheyWereWritten_whateverElseIsThere)
{
    for (const ScreenChoice& choice :
         {ScreenChoice(), ScreenChoice{ScreensMode::Mirror, {MonitorChoice::Kind::First, {}}},
          ScreenChoice{ScreensMode::Span,
                       {MonitorChoice::Kind::Named, {QStringLiteral("A"), QStringLiteral("B")}}}}) {
        ConfigurationFile file("# mine\n[idle]\nafter=7\n", QStringLiteral("conf"));
        putScreenChoice(choice, file);
        EXPECT_EQ(choiceOf(file.text()), choice);
        EXPECT_TRUE(file.text().startsWith("# mine\n[idle]\nafter=7\n"));
    }
}

} // namespace kestro
