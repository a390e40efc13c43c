#include "settings/Options.h"

#include "settings/SettingsInMemory.h"

#include <gtest/gtest.h>

namespace kestro {

TEST(Options, storedOption_isTheKeyAndItsText)
{
    const QVariantMap expected{{"SoundOn", "1"},
                               {"PlayMode", "2"},
                               {"Scale", "0.500000"},
                               {"BackSaver", "/s/A.saver"},
                               {"FileList", QVariantList{"http://m/a.mov"}}};
    EXPECT_EQ(
        (QVariantMap{storedOption(option::soundOn, true), storedOption(option::playMode, PlayModeEnlarged),
                     storedOption(option::scale, 0.5F),
                     storedOption(option::backSaver, QStringLiteral("/s/A.saver")),
                     storedOption(option::fileList, {QStringLiteral("http://m/a.mov")})}),
        expected);
}

TEST(Options, readOption_answersWhatWasStored)
{
    SettingsInMemory settings({storedOption(option::fadeout, true),
                               storedOption(option::reposition, RepositionWhenMovieEnds),
                               storedOption(option::interval, 2.5F)});
    SettingsStore& store = settings->store();
    EXPECT_TRUE(readOption(option::fadeout, store));
    EXPECT_EQ(readOption(option::reposition, store), RepositionWhenMovieEnds);
    EXPECT_EQ(readOption(option::interval, store), 2.5F);
}

TEST(Options, list_isNone_whenAbsent_andEmpty_whenItIsNoList)
{
    SettingsInMemory settings;
    EXPECT_EQ(readOption(option::fileList, settings->store()), std::nullopt);
    settings->store().setPlist({{"FileList", "http://m/a.mov"}});
    EXPECT_EQ(readOption(option::fileList, settings->store()), QVariantList());
}

} // namespace kestro
