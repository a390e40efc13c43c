#include "settings/Settings.h"
#include "settings/SettingsInMemory.h"

#include <gtest/gtest.h>
#include <vector>

namespace kestro {

namespace {

/// One settings file; null stands for an absent key.
struct File {
    const char* fullScreenMode;
    const char* partialMode;
    const char* flyMode;
    const char* bounce;
};

struct Modes {
    bool isFullScreen;
    int partialMode;
    bool isFlyMode;
    bool isBounceMode;
    bool operator==(const Modes&) const = default;
};

struct Case {
    File file;
    Modes expected;
};

QVariantMap plistOf(const File& file)
{
    QVariantMap plist;
    const auto put = [&plist](const char* key, const char* value) {
        if (value != nullptr) plist.insert(QString::fromUtf8(key), QString::fromUtf8(value));
    };
    put("FullScreenMode", file.fullScreenMode);
    put("PartialMode", file.partialMode);
    put("FlyMode", file.flyMode);
    put("Bounce", file.bounce);
    return plist;
}

std::string describe(const File& file)
{
    std::string text;
    for (const char* value : {file.fullScreenMode, file.partialMode, file.flyMode, file.bounce})
        text += std::string(value == nullptr ? "-" : value) + " ";
    return text;
}

void expectModes(const std::vector<Case>& cases)
{
    for (const Case& c : cases) {
        SettingsInMemory settings(plistOf(c.file));
        const Modes found{settings->isFullScreen(), settings->partialMode(), settings->isFlyMode(),
                          settings->isBounceMode()};
        EXPECT_EQ(found.isFullScreen, c.expected.isFullScreen) << describe(c.file);
        EXPECT_EQ(found.partialMode, c.expected.partialMode) << describe(c.file);
        EXPECT_EQ(found.isFlyMode, c.expected.isFlyMode) << describe(c.file);
        EXPECT_EQ(found.isBounceMode, c.expected.isBounceMode) << describe(c.file);
        EXPECT_EQ(settings->isDynamicMode(), !found.isFullScreen) << describe(c.file);
    }
}

constexpr const char* none = nullptr;

} // namespace

// Full screen, partial, fly and bounce mode of the keys FullScreenMode, PartialMode, FlyMode, Bounce.
TEST(SettingsModes, modes_followTheOldKeys_whenThereAreNoNewOnes)
{
    expectModes({
        {{none, none, none, none}, {true, 0, false, false}},
        {{none, none, "0", none}, {true, 0, false, false}},
        {{none, none, "1", none}, {true, 0, false, false}},
        {{none, none, none, "0"}, {true, 0, false, false}},
        {{none, none, none, "1"}, {true, 1, false, false}},
        {{none, none, "0", "0"}, {true, 0, false, false}},
        {{none, none, "1", "0"}, {false, 0, true, false}},
        {{none, none, "0", "1"}, {false, 1, false, true}},
        {{none, none, "1", "1"}, {false, 0, true, true}},
        {{none, none, "abc", "abc"}, {true, 0, false, false}},
    });
}

TEST(SettingsModes, modes_followTheNewKeys_whenBothArePresent)
{
    expectModes({
        {{"1", "0", none, none}, {true, 0, false, false}},
        {{"1", "1", none, none}, {true, 1, false, false}},
        {{"0", "0", none, none}, {false, 0, true, false}},
        {{"0", "1", none, none}, {false, 1, false, true}},
        {{"0", "2", none, none}, {false, 2, false, false}},
        {{"0", "-1", none, none}, {false, -1, false, false}},
        {{"0", "abc", none, none}, {false, 0, true, false}},
        {{"abc", "1", none, none}, {false, 1, false, true}},
        {{"2", "1", none, none}, {true, 1, false, false}},
        {{"0", "0", "0", "1"}, {false, 0, true, false}},
        {{"0", "1", "1", "0"}, {false, 1, false, true}},
        {{"0", "2", "1", "1"}, {false, 2, false, false}},
        {{"1", "0", "1", "1"}, {true, 0, false, false}},
    });
}

TEST(SettingsModes, modes_mixNewAndOldKeys_whenOneNewOneIsAbsent)
{
    expectModes({
        {{"0", none, none, none}, {false, 0, false, false}},
        {{"0", none, "1", none}, {false, 0, true, false}},
        {{"0", none, none, "1"}, {false, 1, false, true}},
        {{"0", none, "1", "1"}, {false, 0, true, true}},
        {{"0", none, "0", "0"}, {false, 0, false, false}},
        {{"1", none, "1", "1"}, {true, 0, false, false}},
        {{none, "0", none, none}, {true, 0, false, false}},
        {{none, "1", none, none}, {true, 1, false, false}},
        {{none, "1", "1", none}, {true, 1, false, false}},
        {{none, "1", "1", "0"}, {false, 1, false, true}},
        {{none, "0", "0", "1"}, {false, 0, true, false}},
        {{none, "2", "0", "1"}, {false, 2, false, false}},
    });
}

TEST(SettingsModes, repostionWhenMovieEnds_needsAPartialScreenInAView)
{
    struct RepositionCase {
        const char* fullScreenMode;
        const char* reposition;
        bool windowMode;
        bool expected;
    };
    const std::vector<RepositionCase> cases{
        {"0", "1", false, true},   {"0", "1", true, false},  {"1", "1", false, false},
        {"0", "0", false, false},  {"0", "2", false, false}, {"0", none, false, false},
        {none, "1", false, false},
    };
    for (const auto& c : cases) {
        QVariantMap plist = plistOf({c.fullScreenMode, "0", none, none});
        if (c.reposition != nullptr)
            plist.insert(QStringLiteral("Reposition"), QString::fromUtf8(c.reposition));
        SettingsInMemory settings(plist, {.windowMode = c.windowMode});
        EXPECT_EQ(settings->repostionWhenMovieEnds(), c.expected)
            << (c.fullScreenMode == nullptr ? "-" : c.fullScreenMode) << " "
            << (c.reposition == nullptr ? "-" : c.reposition) << " " << c.windowMode;
    }
}

TEST(SettingsModes, repostionWhenMovieEnds_stops_onceTheViewIsInWindowMode)
{
    SettingsInMemory settings(QVariantMap{{QStringLiteral("FullScreenMode"), QStringLiteral("0")},
                                          {QStringLiteral("Reposition"), QStringLiteral("1")}});
    EXPECT_TRUE(settings->repostionWhenMovieEnds());
    settings->setWindowMode(true);
    EXPECT_FALSE(settings->repostionWhenMovieEnds());
}

TEST(SettingsModes, loopMode_loopsOnlyASingleEntry)
{
    struct LoopCase {
        qsizetype entries;
        bool backAndForth;
        bool reposition;
        std::optional<int> expected;
    };
    const std::vector<LoopCase> cases{
        {0, false, false, 0}, {0, true, true, 0}, {2, false, false, 0},
        {2, true, false, 0},  {2, true, true, 0}, {1, false, false, 1},
        {1, true, false, 2},  {1, true, true, 2}, {1, false, true, {}},
    };
    for (const auto& c : cases) {
        SettingsInMemory settings(QVariantMap{{QStringLiteral("FullScreenMode"), QStringLiteral("0")},
                                              {QStringLiteral("BackAndForth"), c.backAndForth},
                                              {QStringLiteral("Reposition"), c.reposition}});
        EXPECT_EQ(settings->loopMode(c.entries), c.expected)
            << c.entries << " " << c.backAndForth << " " << c.reposition;
    }
}

} // namespace kestro
