#include "host/commands/RunOptions.h"

#include <gtest/gtest.h>

namespace kestro {

namespace {

Result<RunOptions> read(const QStringList& words, const QString& handedOver = {})
{
    const auto arguments = Arguments::parse(RunOptions::syntax(), words);
    if (!arguments) return arguments.failure();
    return RunOptions::from(arguments.value(), handedOver);
}

RunOptions options(const QStringList& words, const QString& handedOver = {})
{
    const auto result = read(words, handedOver);
    EXPECT_TRUE(result.isOk()) << (result ? "" : qPrintable(result.error()));
    return result ? result.value() : RunOptions();
}

QVariantMap settings(const QString& words)
{
    return options(words.split(u' ')).settings;
}

const QString root = QStringLiteral("--root");
const QString windowId = QStringLiteral("--window-id");

} // namespace

TEST(RunOptions, run_coversTheMonitors_whenNoWindowIsAskedFor)
{
    EXPECT_FALSE(options({}, QStringLiteral("0x42")).isInWindow);
    EXPECT_TRUE(options({}).settings.isEmpty());
}

TEST(RunOptions, root_isTheWindowOfTheEnvironment_orTheRootWindow)
{
    EXPECT_EQ(options({root}, QStringLiteral("0x2A00007")).window, 0x2a00007U);
    EXPECT_EQ(options({root}, QStringLiteral("44040199")).window, 44040199U);
    EXPECT_EQ(options({QStringLiteral("-root")}, QStringLiteral("7")).window, 7U);
    EXPECT_TRUE(options({root}).isInWindow);
    EXPECT_EQ(options({root}).window, std::nullopt);
}

TEST(RunOptions, windowId_winsOverTheEnvironment_inEveryForm)
{
    for (const QStringList& words : {QStringList{windowId, QStringLiteral("0x1234")},
                                     {QStringLiteral("--window-id=4660")},
                                     {QStringLiteral("-window-id"), QStringLiteral("0X1234")},
                                     {root, windowId, QStringLiteral("4660")}}) {
        const RunOptions given = options(words, QStringLiteral("nonsense"));
        EXPECT_TRUE(given.isInWindow);
        EXPECT_EQ(given.window, 0x1234U);
    }
}

// So xscreensaver's settings name their pane; the saver itself gets its windows by the variable.
TEST(RunOptions, window_isAPreview_whenItIsGivenByItsNumber)
{
    const QString variable = QStringLiteral("0x1234");
    EXPECT_TRUE(options({windowId, variable}).isPreview);
    EXPECT_TRUE(options({root, windowId, variable}, QStringLiteral("7")).isPreview);
    EXPECT_FALSE(options({root}, variable).isPreview);
    EXPECT_FALSE(options({root}).isPreview);
    EXPECT_FALSE(options({}, variable).isPreview);
}

TEST(RunOptions, window_isRefused_whenItIsNoNumber)
{
    for (const char* text : {"", "0x", "x", "12x", "0x1g", "-5", "4294967296", "0x100000000", "1.5"}) {
        EXPECT_FALSE(read({windowId, QString::fromLatin1(text)}).isOk()) << text;
        const bool isSet = *text != '\0'; // an empty variable counts as none
        EXPECT_EQ(read({root}, QString::fromLatin1(text)).isOk(), !isSet) << text;
    }
}

TEST(RunOptions, settings_areTheKeysOfTheFile)
{
    const QString fullScreen = QStringLiteral("FullScreenMode");
    const QString partial = QStringLiteral("PartialMode");
    const QString on = QStringLiteral("1");
    const QString off = QStringLiteral("0");
    EXPECT_EQ(settings(QStringLiteral("--mode fullscreen")), (QVariantMap{{fullScreen, on}}));
    EXPECT_EQ(settings(QStringLiteral("--mode fly")), (QVariantMap{{fullScreen, off}, {partial, off}}));
    EXPECT_EQ(settings(QStringLiteral("-mode bounce")), (QVariantMap{{fullScreen, off}, {partial, on}}));
    EXPECT_EQ(settings(QStringLiteral("--scale 0.25")),
              (QVariantMap{{QStringLiteral("Scale"), QStringLiteral("0.250000")}}));
    EXPECT_EQ(settings(QStringLiteral("--random --fade --sound")),
              (QVariantMap{{QStringLiteral("RandomMode"), on},
                           {QStringLiteral("Fadeout"), on},
                           {QStringLiteral("SoundOn"), on}}));
    EXPECT_EQ(settings(QStringLiteral("--no-random --no-fade --no-sound")),
              (QVariantMap{{QStringLiteral("RandomMode"), off},
                           {QStringLiteral("Fadeout"), off},
                           {QStringLiteral("SoundOn"), off}}));
}

TEST(RunOptions, settings_areRefused_whenTheyMakeNoSense)
{
    for (const char* words :
         {"--mode none", "--mode=", "--scale x", "--scale 0", "--scale 1000", "--scale nan",
          "--fade --no-fade", "--no-sound --sound", "--random --no-random"})
        EXPECT_FALSE(read(QString::fromLatin1(words).split(u' ')).isOk()) << words;
}

TEST(RunOptions, stopAfter_isASpan_orNever_orNotSaid)
{
    using namespace std::chrono_literals;
    EXPECT_EQ(options({}).stopAfter, std::nullopt);
    EXPECT_EQ(options({QStringLiteral("--stop-after"), QStringLiteral("90s")}).stopAfter, 90s);
    EXPECT_EQ(options({QStringLiteral("--stop-after=0")}).stopAfter, 0s);
    EXPECT_FALSE(read({QStringLiteral("--stop-after=soon")}).isOk());
}

TEST(RunOptions, stopAfter_isRefused_inAGivenWindow)
{
    EXPECT_EQ(read({QStringLiteral("--stop-after=5"), root}).error(),
              QStringLiteral("--stop-after is not for a window that another program hands over"));
    EXPECT_FALSE(read({QStringLiteral("--stop-after=5"), windowId, QStringLiteral("1")}).isOk());
}

TEST(RunOptions, screens_areForOneRun_alsoWithOneDash)
{
    EXPECT_TRUE(options({}).screens.isNone());
    EXPECT_EQ(options({QStringLiteral("-mirror")}).screens.mode, ScreensMode::Mirror);
    EXPECT_FALSE(read({QStringLiteral("--mirror"), QStringLiteral("--each")}).isOk());
}

} // namespace kestro
