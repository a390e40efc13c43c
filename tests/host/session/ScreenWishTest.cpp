#include "host/session/ScreenWish.h"

#include <gtest/gtest.h>

namespace kestro {

namespace {

Result<ScreenWish> read(const QStringList& words)
{
    Syntax syntax;
    syntax.options = ScreenWish::options();
    const auto arguments = Arguments::parse(syntax, words);
    if (!arguments) return arguments.failure();
    return ScreenWish::from(arguments.value());
}

ScreenWish wish(const QStringList& words)
{
    const auto result = read(words);
    EXPECT_TRUE(result.isOk());
    return result ? result.value() : ScreenWish();
}

const ScreenChoice configured{ScreensMode::Span, {MonitorChoice::Kind::First, {}}};

} // namespace

TEST(ScreenWish, isNone_whenNothingIsSaid)
{
    EXPECT_TRUE(wish({}).isNone());
    EXPECT_EQ(wish({}).over(configured), configured);
}

TEST(ScreenWish, mode_isWhatTheWordSays)
{
    EXPECT_EQ(wish({QStringLiteral("--each")}).mode, ScreensMode::Each);
    EXPECT_EQ(wish({QStringLiteral("--mirror")}).mode, ScreensMode::Mirror);
    EXPECT_EQ(wish({QStringLiteral("--span")}).mode, ScreensMode::Span);
}

TEST(ScreenWish, counts_insteadOfWhatIsConfigured_onlyWhereItSaysSomething)
{
    EXPECT_EQ(wish({QStringLiteral("--each")}).over(configured),
              (ScreenChoice{ScreensMode::Each, configured.monitors}));
    EXPECT_EQ(wish({QStringLiteral("--monitors=all")}).over(configured),
              (ScreenChoice{ScreensMode::Span, {}}));
}

TEST(ScreenWish, monitors_areWhatTheListSays)
{
    EXPECT_EQ(wish({QStringLiteral("--monitors"), QStringLiteral("DP-1,DP-2")}).monitors->names,
              (QStringList{QStringLiteral("DP-1"), QStringLiteral("DP-2")}));
}

TEST(ScreenWish, isRefused_whenTheWordsDoNotGoTogether)
{
    const auto both = read({QStringLiteral("--mirror"), QStringLiteral("--span")});
    ASSERT_FALSE(both.isOk());
    EXPECT_EQ(both.error(), QStringLiteral("--each, --mirror and --span exclude each other"));
    const auto list = read({QStringLiteral("--monitors=all,DP-1")});
    ASSERT_FALSE(list.isOk());
    EXPECT_EQ(list.error(),
              QStringLiteral("--monitors: \"all,DP-1\" is neither all, first nor names with commas "
                             "between them"));
}

} // namespace kestro
