#include "settings/Settings.h"

#include "settings/SettingsInMemory.h"

#include <QDateTime>
#include <QFile>

#include <gtest/gtest.h>
#include <vector>

namespace kestro {

namespace {

// An option that is one key, with the value it has when that key is absent.
template <typename Value>
struct Option {
    const char* key;
    Value (Settings::*read)() const;
    Value whenAbsent;
};

const std::vector<Option<bool>> flags{
    {"SoundOn", &Settings::isSoundOn, false},          {"FlyMode", &Settings::_isFlyMode, false},
    {"Bounce", &Settings::_isBounceMode, false},       {"RandomMode", &Settings::isRandomMode, false},
    {"Continue", &Settings::isContinue, false},        {"Continue", &Settings::canContinue, false},
    {"Fadeout", &Settings::fadeoutEffect, false},      {"BackAndForth", &Settings::backAndForth, false},
    {"FullScreenMode", &Settings::isFullScreen, true},
};

const std::vector<Option<int>> integers{
    {"Ver", &Settings::plistVersion, 0},      {"PartialMode", &Settings::partialMode, 0},
    {"PlayMode", &Settings::playMode, 0},     {"FullScreen", &Settings::playMode, 0},
    {"Reposition", &Settings::reposition, 0},
};

const std::vector<Option<float>> reals{
    {"Scale", &Settings::scaleFactor, 1.0F},
    {"Interval", &Settings::timeInterval, 4.0F},
};

struct Stored {
    QVariant object;
    int integer;
    float real;
};

// What may stand at a key, and how it reads.
std::vector<Stored> storedObjects()
{
    return {
        {QStringLiteral("0"), 0, 0.0F},
        {QStringLiteral("1"), 1, 1.0F},
        {QStringLiteral("2"), 2, 2.0F},
        {QStringLiteral("-1"), -1, -1.0F},
        {QStringLiteral(" 3 apples"), 3, 3.0F},
        {QStringLiteral("2.500000"), 2, 2.5F},
        {QStringLiteral(""), 0, 0.0F},
        {QStringLiteral("abc"), 0, 0.0F},
        {QStringLiteral("YES"), 0, 0.0F},
        {true, 1, 1.0F},
        {false, 0, 0.0F},
        {qlonglong(2), 2, 2.0F},
        {2.5, 2, 2.5F},
        {0.4, 0, 0.4F},
        {QVariantList{1}, 0, 0.0F},
        {QVariantMap{{QStringLiteral("1"), 1}}, 0, 0.0F},
        {QByteArray("1"), 0, 0.0F},
        {QDateTime::fromSecsSinceEpoch(1), 0, 0.0F},
    };
}

QVariantMap only(const char* key, const QVariant& object)
{
    return {{QString::fromUtf8(key), object}};
}

} // namespace

TEST(Settings, flag_isOn_whenPresentAndNotZero)
{
    for (const auto& option : flags) {
        EXPECT_EQ((SettingsInMemory().settings().*option.read)(), option.whenAbsent) << option.key;
        for (const Stored& stored : storedObjects()) {
            SettingsInMemory settings(only(option.key, stored.object));
            EXPECT_EQ((settings.settings().*option.read)(), stored.integer != 0)
                << option.key << " " << stored.object.toString().toStdString();
        }
    }
}

TEST(Settings, integer_isTheStoredOnes_whenPresent)
{
    for (const auto& option : integers) {
        EXPECT_EQ((SettingsInMemory().settings().*option.read)(), option.whenAbsent) << option.key;
        for (const Stored& stored : storedObjects()) {
            SettingsInMemory settings(only(option.key, stored.object));
            EXPECT_EQ((settings.settings().*option.read)(), stored.integer)
                << option.key << " " << stored.object.toString().toStdString();
        }
    }
}

TEST(Settings, real_isTheStoredOnes_whenPresent)
{
    for (const auto& option : reals) {
        EXPECT_EQ((SettingsInMemory().settings().*option.read)(), option.whenAbsent) << option.key;
        for (const Stored& stored : storedObjects()) {
            SettingsInMemory settings(only(option.key, stored.object));
            EXPECT_EQ((settings.settings().*option.read)(), stored.real)
                << option.key << " " << stored.object.toString().toStdString();
        }
    }
}

TEST(Settings, answers_areReadAnew_eachTime)
{
    SettingsInMemory settings;
    EXPECT_FALSE(settings->isSoundOn());
    settings->store().setPlist({{QStringLiteral("SoundOn"), QStringLiteral("1")}});
    EXPECT_TRUE(settings->isSoundOn());
}

TEST(Settings, playMode_isTheOldKeys_onlyWhenTheNewOneIsAbsent)
{
    SettingsInMemory old(QVariantMap{{QStringLiteral("FullScreen"), QStringLiteral("2")}});
    EXPECT_EQ(old->playMode(), 2);
    SettingsInMemory both(QVariantMap{{QStringLiteral("FullScreen"), QStringLiteral("2")},
                                      {QStringLiteral("PlayMode"), QStringLiteral("0")}});
    EXPECT_EQ(both->playMode(), 0);
}

TEST(Settings, canContinue_isNever_inAPreview)
{
    const auto on = only("Continue", QStringLiteral("1"));
    SettingsInMemory preview(on, {.isPreview = true});
    EXPECT_FALSE(preview->canContinue());
    EXPECT_TRUE(preview->isContinue());
    SettingsInMemory full(on);
    EXPECT_TRUE(full->canContinue());
}

TEST(Settings, backSaver_isTheStoredText_orNothing)
{
    const QString path = QStringLiteral("/Library/Screen Savers/Pictures.slideSaver");
    EXPECT_EQ(SettingsInMemory(only("BackSaver", path))->backSaver(), path);
    EXPECT_EQ(SettingsInMemory(only("BackSaver", QStringLiteral("")))->backSaver(), QStringLiteral(""));
    EXPECT_FALSE(SettingsInMemory()->backSaver().has_value());
    for (const QVariant& object :
         {QVariant(1), QVariant(true), QVariant(QVariantList{path}), QVariant(path.toUtf8())})
        EXPECT_FALSE(SettingsInMemory(only("BackSaver", object))->backSaver().has_value())
            << object.typeName();
}

TEST(Settings, resetContinue_removesThePosition_andKeepsTheMovie)
{
    SettingsInMemory settings;
    SettingsStore& store = settings->store();
    ASSERT_TRUE(store.setDefaultsForKey(QStringLiteral("a.mov"), QStringLiteral("LastMovie")));
    ASSERT_TRUE(store.setDefaultsForKey(QStringLiteral("600"), QStringLiteral("LastPos")));
    settings->resetContinue();
    SettingsStore readAgain(
        store.plistPath().chopped(QStringLiteral("/Library/Preferences/Kestro.plist").size()));
    EXPECT_FALSE(readAgain.defaultsForKey(QStringLiteral("LastPos")).has_value());
    EXPECT_EQ(readAgain.defaultsForKey(QStringLiteral("LastMovie")), QVariant(QStringLiteral("a.mov")));
}

TEST(Settings, everyOption_followsTheOptionsForThisRun)
{
    SettingsInMemory settings;
    settings->store().setOptionsForThisRun({{QStringLiteral("FullScreenMode"), QStringLiteral("0")},
                                            {QStringLiteral("PartialMode"), QStringLiteral("1")},
                                            {QStringLiteral("Scale"), QStringLiteral("0.5")},
                                            {QStringLiteral("BackSaver"), QStringLiteral("/a.saver")}});
    EXPECT_TRUE(settings->isBounceMode());
    EXPECT_EQ(settings->scaleFactor(), 0.5F);
    EXPECT_EQ(settings->backSaver(), QStringLiteral("/a.saver"));
}

} // namespace kestro
