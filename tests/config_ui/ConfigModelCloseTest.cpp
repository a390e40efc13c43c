// What OK stores, and that Cancel stores nothing.

#include "config_ui/ConfigFixture.h"
#include "platform/plist/PropertyList.h"
#include "support/WaitUntil.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace kestro {

namespace {

const QString slideSaverMessage = QStringLiteral(
    "You selected '.slideSaver'. \nYou may need to restart 'System Preferences.app' to take effect "
    "properly.");

class ConfigModelCloseTest : public ConfigFixture {
protected:
    [[nodiscard]] QVariantMap stored()
    {
        return readPropertyListDictionary(saver.store().plistPath()).value_or(QVariantMap());
    }
    /// Drops a file, which is looked for from then on, and presses OK.
    ConfigModel& dropAndPressOK()
    {
        EXPECT_TRUE(QFile(dropped).open(QIODevice::WriteOnly));
        auto& model = openList({});
        model.addDropped({QUrl::fromLocalFile(dropped)});
        model.closeConfig(1);
        EXPECT_FALSE(hasEnded());
        return model;
    }
    [[nodiscard]] bool hasEnded() const { return std::ranges::find(calls, "end sheet") != calls.end(); }

    QString dropped = folder.filePath("a.mov");
};

} // namespace

TEST_F(ConfigModelCloseTest, ok_storesEveryControlInItsForm)
{
    saver.backSavers = {"/s/A.saver", "/s/B.saver"};
    auto& model = openList({movie("b.mov"), "http://Example.COM/a.mov"});
    model.controls() = {.soundChk = true,
                        .fullScreenChk = false,
                        .playModeRadio = 2,
                        .partialModeRadio = 1,
                        .scaleSlider = 0.5F,
                        .timeIntervalField = "7.25",
                        .reposRadio = 1,
                        .randomChk = true,
                        .continueChk = false,
                        .fadeoutChk = true,
                        .backAndForthChk = false,
                        .backSaverPopup = 2};
    model.closeConfig(1);
    const QVariantMap expected{{"FileList", QVariantList{movie("b.mov"), "http://Example.COM/a.mov"}},
                               {"SoundOn", "1"},
                               {"PartialMode", "1"},
                               {"RandomMode", "1"},
                               {"Continue", "0"},
                               {"FullScreenMode", "0"},
                               {"PlayMode", "2"},
                               {"Fadeout", "1"},
                               {"BackAndForth", "0"},
                               {"Interval", "7.250000"},
                               {"Reposition", "1"},
                               {"Scale", "0.500000"},
                               {"BackSaver", "/s/B.saver"},
                               {"Ver", "5"}};
    EXPECT_EQ(stored(), expected);
    EXPECT_EQ(saver.store().plist(), expected);
}

TEST_F(ConfigModelCloseTest, ok_dropsWhatTheSheetDoesNotWrite)
{
    auto& model = open({{"FlyMode", "1"}, {"Bounce", "0"}, {"FullScreen", "2"}, {"Other", "x"}});
    model.closeConfig(1);
    for (const char* key : {"FlyMode", "Bounce", "FullScreen", "Other", "BackSaver"})
        EXPECT_FALSE(stored().contains(key)) << key;
    EXPECT_EQ(stored()["PlayMode"], "2");
    EXPECT_EQ(stored()["FullScreenMode"], "0");
}

TEST_F(ConfigModelCloseTest, ok_storesValuesOutOfRangeAsTheyAre)
{
    auto& model = open({{"PlayMode", "7"}, {"PartialMode", "-3"}, {"Reposition", "4"}, {"Scale", "12.5"}});
    model.controls().timeIntervalField = "-2";
    model.closeConfig(1);
    EXPECT_EQ(stored()["PlayMode"], "7");
    EXPECT_EQ(stored()["PartialMode"], "-3");
    EXPECT_EQ(stored()["Reposition"], "4");
    EXPECT_EQ(stored()["Scale"], "12.500000");
    EXPECT_EQ(stored()["Interval"], "-2.000000");
}

TEST_F(ConfigModelCloseTest, ok_storesTheNumberThatTheIntervalStartsWith_elseZero)
{
    auto& model = open();
    model.controls().timeIntervalField = "soon";
    model.closeConfig(1);
    EXPECT_EQ(stored()["Interval"], "0.000000");
    model.controls().timeIntervalField = "2.5 or so";
    model.closeConfig(1);
    EXPECT_EQ(stored()["Interval"], "2.500000");
}

TEST_F(ConfigModelCloseTest, ok_storesThePathsOfAnOlderListAsURLs)
{
    auto& model = open({{"Ver", "4"}, {"FileList", QVariantList{"/movies/My Movie.mov"}}});
    model.closeConfig(1);
    EXPECT_EQ(stored()["FileList"], QVariantList{"file:///movies/My%20Movie.mov"});
    EXPECT_EQ(stored()["Ver"], "5");
}

TEST_F(ConfigModelCloseTest, ok_storesTheSelectedItemsPath_whenTheNameIsOfferedTwice)
{
    saver.backSavers = {"/one/B.saver", "/two/B.saver"};
    auto& model = open({{"BackSaver", "/two/B.saver"}});
    model.closeConfig(1);
    EXPECT_EQ(stored()["BackSaver"], "/one/B.saver");
}

TEST_F(ConfigModelCloseTest, ok_removesTheBackSaver_whenDisabled)
{
    saver.backSavers = {"/one/B.saver"};
    auto& model = open({{"BackSaver", "/one/B.saver"}});
    model.controls().backSaverPopup = 0;
    model.closeConfig(1);
    EXPECT_FALSE(stored().contains("BackSaver"));
}

TEST_F(ConfigModelCloseTest, ok_restartsTheSaverWithoutItsPosition_inThisOrder)
{
    (void)saver.store().setDefaultsForKey("100", "LastPos");
    (void)saver.store().setDefaultsForKey("a.mov", "LastMovie");
    auto& model = openList({movie("a.mov")}, {{"Continue", "1"}});
    (void)saver.playlist().fileList();
    model.controls().backAndForthChk = true;
    model.closeConfig(1);
    EXPECT_EQ(calls, (Calls{"end sheet", "loop 2", "reset", "close trailers"}));
    EXPECT_EQ(saver.store().defaultsForKey("LastMovie"), "a.mov");
}

TEST_F(ConfigModelCloseTest, ok_dropsTheExpandedList)
{
    auto& model = openList({movie("a.mov")});
    ASSERT_EQ(saver.playlist().fileList().size(), 1);
    model.addURLList({QUrl(movie("b.mov"))});
    model.closeConfig(1);
    EXPECT_EQ(saver.playlist().fileList(), (QList<QUrl>{QUrl(movie("a.mov")), QUrl(movie("b.mov"))}));
    EXPECT_EQ(calls[1], "loop 0");
}

TEST_F(ConfigModelCloseTest, ok_alertsOfASlideSaver_andStillSaves)
{
    saver.backSavers = {"/s/A.saver", "/s/Five.slideSaver"};
    auto& model = openList({movie("a.mov")});
    model.controls().backSaverPopup = 2;
    QVariantMap duringAlert;
    panels.duringAlert = [&] {
        duringAlert = saver.store().plist();
        EXPECT_TRUE(file().isEmpty());
    };
    model.closeConfig(1);
    EXPECT_EQ(panels.alerts, std::vector<QString>{slideSaverMessage});
    EXPECT_EQ(calls, (Calls{"end sheet", "alert", "loop 1", "reset", "close trailers"}));
    EXPECT_EQ(stored()["BackSaver"], "/s/Five.slideSaver");
    EXPECT_EQ(duringAlert, saver.store().plist());
}

TEST_F(ConfigModelCloseTest, ok_doesNotAlert_forAnyOtherSaver)
{
    saver.backSavers = {"/s/slideSaver.saver", "/s/A.slidesaver"};
    for (const int item : {0, 1, 2}) {
        auto& model = open();
        model.controls().backSaverPopup = item;
        model.closeConfig(1);
    }
    EXPECT_TRUE(panels.alerts.empty());
}

TEST_F(ConfigModelCloseTest, ok_alertsAndKeepsTheNewSettingsInMemory_whenTheFileCannotBeWritten)
{
    auto& model = open();
    const QString home = QFileInfo(saver.store().plistPath()).path();
    ASSERT_TRUE(QDir().mkpath(QFileInfo(home).path()));
    QFile inTheWay(home);
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    model.controls().soundChk = true;
    model.closeConfig(1);
    EXPECT_TRUE(saver.settings().isSoundOn());
    const QString message = QStringLiteral("The settings could not be saved in %1. They are lost when this "
                                           "window closes.");
    EXPECT_EQ(panels.alerts, std::vector<QString>{message.arg(saver.store().plistPath())});
    const Calls order{"end sheet", "loop 0", "reset", "alert", "close trailers"};
    EXPECT_EQ(calls, order);
}

TEST_F(ConfigModelCloseTest, ok_tellsOnceWhereTheFileIsKept_whenItCouldNotBeRead)
{
    const QString path = saver.store().plistPath();
    ASSERT_TRUE(QDir().mkpath(QFileInfo(path).path()));
    QFile broken(path);
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    ASSERT_EQ(broken.write("<plist>"), 7);
    broken.close();
    auto& model = open();
    model.closeConfig(1);
    model.closeConfig(1);
    QString copy = path;
    copy.replace(QStringLiteral("Kestro.plist"), QStringLiteral("Kestro~.plist"));
    EXPECT_EQ(panels.alerts,
              std::vector<QString>{
                  QStringLiteral("The settings file could not be read. It was kept as %1.").arg(copy)});
    EXPECT_TRUE(QFileInfo::exists(copy));
}

TEST_F(ConfigModelCloseTest, cancel_leavesTheFileAsItIs_andGoesBackToTheSettings)
{
    openList({movie("a.mov")}, {{"BackAndForth", "1"}, {"FlyMode", "1"}});
    ASSERT_TRUE(saver.store().writePlist());
    const QByteArray before = file();
    auto& model = openList({movie("a.mov")}, {{"BackAndForth", "1"}, {"FlyMode", "1"}});
    const ConfigControls shown = model.controls();
    model.addURLList({QUrl(movie("b.mov"))});
    model.controls().soundChk = true;
    model.controls().scaleSlider = 2;
    model.closeConfig(0);
    EXPECT_EQ(file(), before);
    EXPECT_EQ(model.controls(), shown);
    EXPECT_TRUE(model.enabling().backAndForthChk);
    EXPECT_EQ(listed(), QStringList{movie("a.mov")});
    EXPECT_EQ(calls, (Calls{"end sheet", "close trailers"}));
}

TEST_F(ConfigModelCloseTest, ok_waitsForWhatWasDropped)
{
    dropAndPressOK();
    ASSERT_TRUE(waitUntil([this] { return hasEnded(); }));
    EXPECT_EQ(stored().value("FileList"), QVariantList{QUrl::fromLocalFile(dropped).toString()});
}

TEST_F(ConfigModelCloseTest, ok_isForgotten_whenPersonGivesUpWhatWasDropped)
{
    auto& model = dropAndPressOK();
    panels.giveUp();
    model.addDropped({QUrl::fromLocalFile(dropped)});
    ASSERT_TRUE(waitUntil([this] { return !listed().isEmpty(); }));
    EXPECT_FALSE(hasEnded());
}

TEST_F(ConfigModelCloseTest, ok_isForgotten_whenNothingWasFoundInWhatWasDropped)
{
    auto& model = openList({});
    model.addDropped({QUrl::fromLocalFile(folder.path())});
    model.closeConfig(1);
    ASSERT_TRUE(waitUntil([this] { return !panels.alerts.empty(); }));
    EXPECT_FALSE(hasEnded());
}

TEST_F(ConfigModelCloseTest, cancel_givesUpWhatWasDropped)
{
    dropAndPressOK().closeConfig(0);
    EXPECT_TRUE(hasEnded());
    EXPECT_EQ(listed(), QStringList());
}

} // namespace kestro
