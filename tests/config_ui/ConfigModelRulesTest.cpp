// What the controls show when the sheet opens, and which of them can be used.

#include "config_ui/ConfigFixture.h"
#include "platform/base/Log.h"

namespace kestro {

namespace {

class ConfigModelRulesTest : public ConfigFixture {};

} // namespace

TEST_F(ConfigModelRulesTest, resetInterfaces_showsTheValuesOfAbsentKeys)
{
    ConfigControls expected;
    expected.fullScreenChk = true;
    expected.timeIntervalField = "4";
    EXPECT_EQ(open().controls(), expected);
}

TEST_F(ConfigModelRulesTest, resetInterfaces_showsEverySetting)
{
    saver.backSavers = {"/Library/Screen Savers/A.saver", "/Library/Screen Savers/B.saver"};
    const ConfigControls expected{.soundChk = true,
                                  .fullScreenChk = false,
                                  .playModeRadio = 2,
                                  .partialModeRadio = 1,
                                  .scaleSlider = 0.35F,
                                  .timeIntervalField = "2.5",
                                  .reposRadio = 1,
                                  .randomChk = true,
                                  .continueChk = true,
                                  .fadeoutChk = true,
                                  .backAndForthChk = true,
                                  .backSaverPopup = 2};
    EXPECT_EQ(openList({movie("a.mov")}, {{"SoundOn", "1"},
                                          {"PartialMode", "1"},
                                          {"RandomMode", "1"},
                                          {"Continue", "1"},
                                          {"FullScreenMode", "0"},
                                          {"PlayMode", "2"},
                                          {"Fadeout", "1"},
                                          {"BackAndForth", "1"},
                                          {"Interval", "2.500000"},
                                          {"Reposition", "1"},
                                          {"Scale", "0.350000"},
                                          {"BackSaver", "/Library/Screen Savers/B.saver"}})
                  .controls(),
              expected);
}

TEST_F(ConfigModelRulesTest, resetInterfaces_showsTheOptionsOfOlderReleases)
{
    const ConfigControls& shown = open({{"FlyMode", "0"}, {"Bounce", "1"}, {"FullScreen", "2"}}).controls();
    EXPECT_FALSE(shown.fullScreenChk);
    EXPECT_EQ(shown.partialModeRadio, 1);
    EXPECT_EQ(shown.playModeRadio, 2);
}

TEST_F(ConfigModelRulesTest, resetInterfaces_showsThePlaylistAsItIsStored)
{
    openList({"http://Example.COM/A.mov", "auto://LatestTrailers/6/480", "file:///My%20Movie.mov"});
    EXPECT_EQ(listed(), (QStringList{"http://Example.COM/A.mov", "auto://LatestTrailers/6/480",
                                     "file:///My%20Movie.mov"}));
}

TEST_F(ConfigModelRulesTest, resetInterfaces_selectsTheFirstItemOfTheStoredName)
{
    saver.backSavers = {"/one/A.saver", "/two/B.saver", "/three/B.saver"};
    auto& model = open({{"BackSaver", "/three/B.saver"}});
    EXPECT_EQ(model.controls().backSaverPopup, 2);
    EXPECT_EQ(model.backSaverList(), saver.backSavers);
    EXPECT_EQ(model.backSaverItems(), (QStringList{"Disable", "A.saver", "B.saver", "B.saver"}));
}

TEST_F(ConfigModelRulesTest, resetInterfaces_forgetsTheStoredSaverInMemory_whenItIsNotOffered)
{
    const LogCapture quiet([](const QString&) {});
    auto& model = open({{"BackSaver", "/one/Gone.saver"}});
    EXPECT_EQ(model.controls().backSaverPopup, 0);
    EXPECT_FALSE(saver.store().plist().contains("BackSaver"));
    EXPECT_TRUE(file().isEmpty());
}

TEST_F(ConfigModelRulesTest, resetInterfaces_listsTheSaversAnew)
{
    saver.backSavers = {"/s/A.saver"};
    auto& model = open();
    saver.backSavers = {"/s/B.saver", "/s/C.saver"};
    int reloads = 0;
    QObject::connect(&model, &ConfigModel::backSaversReloaded, [&] { ++reloads; });
    model.closeConfig(0);
    EXPECT_EQ(model.backSaverItems(), (QStringList{"Disable", "B.saver", "C.saver"}));
    EXPECT_EQ(reloads, 1);
}

TEST_F(ConfigModelRulesTest, resetInterfaces_appliesTheRuleOfTheWayOfMovingLast)
{
    EXPECT_TRUE(open({{"FullScreenMode", "1"}, {"PartialMode", "0"}}).enabling().timeIntervalField);
    EXPECT_FALSE(open({{"FullScreenMode", "1"}, {"PartialMode", "1"}}).enabling().timeIntervalField);
}

TEST_F(ConfigModelRulesTest, checkFullScreen_enablesThePlayModeAlone_whenOn)
{
    auto& model = openList({movie("a.mov")}, {{"FullScreenMode", "0"}});
    model.controls().fullScreenChk = true;
    model.checkFullScreen();
    EXPECT_EQ(model.enabling(), (ConfigEnabling{.playModeRadio = true, .backAndForthChk = true}));
}

TEST_F(ConfigModelRulesTest, checkFullScreen_enablesAllOthers_whenOffAndFlying)
{
    auto& model = openList({movie("a.mov")}, {{"FullScreenMode", "1"}});
    model.controls().fullScreenChk = false;
    model.checkFullScreen();
    EXPECT_EQ(model.enabling(), (ConfigEnabling{.playModeRadio = false,
                                                .partialModeRadio = true,
                                                .scaleSlider = true,
                                                .scaleField = true,
                                                .timeIntervalField = true,
                                                .reposRadio = true,
                                                .fadeoutChk = true,
                                                .backAndForthChk = true,
                                                .backSaverPopup = true}));
}

TEST_F(ConfigModelRulesTest, checkFullScreen_leavesTheIntervalDisabled_whenOffAndBouncing)
{
    auto& model = openList({movie("a.mov")}, {{"FullScreenMode", "1"}, {"PartialMode", "1"}});
    model.controls().fullScreenChk = false;
    model.checkFullScreen();
    EXPECT_TRUE(model.enabling().partialModeRadio);
    EXPECT_FALSE(model.enabling().timeIntervalField);
    EXPECT_FALSE(model.enabling().reposRadio);
}

TEST_F(ConfigModelRulesTest, checkDynamic_followsTheWayOfMovingAlone)
{
    auto& model = open({{"FullScreenMode", "1"}});
    for (const int row : {1, 0, 2}) {
        model.controls().partialModeRadio = row;
        model.checkDynamic();
        EXPECT_EQ(model.enabling().timeIntervalField, row == 0) << row;
        EXPECT_EQ(model.enabling().reposRadio, row == 0) << row;
        EXPECT_FALSE(model.enabling().partialModeRadio);
    }
}

TEST_F(ConfigModelRulesTest, checkBackAndForthCondition_keepsTheState_forOneEntry)
{
    auto& model = openList({movie("a.mov")}, {{"BackAndForth", "1"}});
    EXPECT_TRUE(model.enabling().backAndForthChk);
    EXPECT_TRUE(model.controls().backAndForthChk);
}

TEST_F(ConfigModelRulesTest, checkBackAndForthCondition_unchecksAndDisables_forAnyOtherNumber)
{
    auto& model = openList({movie("a.mov")}, {{"BackAndForth", "1"}});
    model.addURLList({QUrl(movie("b.mov"))});
    EXPECT_FALSE(model.enabling().backAndForthChk);
    EXPECT_FALSE(model.controls().backAndForthChk);
    model.deleteMovie({0});
    EXPECT_TRUE(model.enabling().backAndForthChk);
    EXPECT_FALSE(model.controls().backAndForthChk);
    model.controls().backAndForthChk = true;
    model.deleteMovie({0});
    EXPECT_FALSE(model.enabling().backAndForthChk);
    EXPECT_FALSE(model.controls().backAndForthChk);
}

TEST_F(ConfigModelRulesTest, everyRule_tellsThatTheControlsChanged)
{
    auto& model = open();
    int changes = 0;
    QObject::connect(&model, &ConfigModel::controlsChanged, [&] { ++changes; });
    model.checkFullScreen();
    EXPECT_EQ(changes, 1);
    model.checkDynamic();
    EXPECT_EQ(changes, 2);
    model.checkBackAndForthCondition();
    EXPECT_EQ(changes, 3);
}

} // namespace kestro
