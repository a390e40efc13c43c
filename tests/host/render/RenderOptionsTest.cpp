#include "host/render/RenderOptions.h"

#include <gtest/gtest.h>

namespace kestro {

namespace {

Result<RenderOptions> optionsFrom(const QStringList& words)
{
    const auto arguments = Arguments::parse(RenderOptions::syntax(), words);
    if (!arguments) return arguments.failure();
    return RenderOptions::from(arguments.value());
}

Result<RenderOptions> withOut(const char* word)
{
    return optionsFrom({QStringLiteral("--out=d"), QString::fromLatin1(word)});
}

} // namespace

TEST(RenderOptions, from_takesTheDefaults_whenOnlyTheFolderIsGiven)
{
    const auto options = optionsFrom({QStringLiteral("--out=d")});
    ASSERT_TRUE(options.isOk());
    EXPECT_EQ(options.value().folder, QStringLiteral("d"));
    EXPECT_TRUE(options.value().traceFile.isEmpty());
    EXPECT_DOUBLE_EQ(options.value().seconds, 10);
    EXPECT_DOUBLE_EQ(options.value().every, 1);
    EXPECT_EQ(options.value().size, QSize(1920, 1080));
    EXPECT_EQ(options.value().screens, 1);
}

TEST(RenderOptions, from_readsEachOption_whenGiven)
{
    const auto options = optionsFrom({QStringLiteral("--out=d"), QStringLiteral("--trace=t"),
                                      QStringLiteral("--seconds=2.5"), QStringLiteral("--every=0.25"),
                                      QStringLiteral("--screens=3"), QStringLiteral("--size=640x480")});
    ASSERT_TRUE(options.isOk());
    EXPECT_EQ(options.value().traceFile, QStringLiteral("t"));
    EXPECT_DOUBLE_EQ(options.value().seconds, 2.5);
    EXPECT_DOUBLE_EQ(options.value().every, 0.25);
    EXPECT_EQ(options.value().size, QSize(640, 480));
    EXPECT_EQ(options.value().screens, 3);
}

TEST(RenderOptions, from_refuses_whenTheFolderIsMissing)
{
    EXPECT_FALSE(optionsFrom({}).isOk());
    EXPECT_FALSE(optionsFrom({QStringLiteral("--out=")}).isOk());
}

TEST(RenderOptions, from_takesTheBoundsThemselves_whenGiven)
{
    for (const char* word : {"--seconds=0.01", "--seconds=86400", "--every=0.01", "--screens=1",
                             "--screens=8", "--size=16x16", "--size=8192x8192", "--size=16x8192"})
        EXPECT_TRUE(withOut(word).isOk()) << word;
}

TEST(RenderOptions, from_refuses_whenAValueIsOutOfItsBounds)
{
    for (const char* word :
         {"--seconds=0", "--seconds=86401", "--every=0", "--screens=0", "--screens=9", "--size=15x480",
          "--size=640x15", "--size=8193x480", "--size=640x99999", "--size=640", "--size=640X480",
          "--size=640x480 ", "--size=+640x480", "--trace="})
        EXPECT_FALSE(withOut(word).isOk()) << word;
}

TEST(RenderOptions, from_refuses_whenTheScreensTogetherAreTooManyPixels)
{
    const QString size = QStringLiteral("--size=8192x8192");
    EXPECT_TRUE(optionsFrom({QStringLiteral("--out=d"), size, QStringLiteral("--screens=2")}).isOk());
    EXPECT_FALSE(optionsFrom({QStringLiteral("--out=d"), size, QStringLiteral("--screens=3")}).isOk());
}

TEST(RenderOptions, from_readsHowTheScreensAreUsed)
{
    EXPECT_EQ(withOut("--screens=2").value().choice, ScreenChoice());
    EXPECT_EQ(withOut("--span").value().choice.mode, ScreensMode::Span);
    EXPECT_EQ(withOut("--monitors=screen1").value().choice.monitors.names,
              QStringList{QStringLiteral("screen1")});
    EXPECT_FALSE(withOut("--monitors=").isOk());
}

} // namespace kestro
