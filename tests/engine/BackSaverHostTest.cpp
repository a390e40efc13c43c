#include "engine/BackSaverHost.h"

#include "engine/EngineTest.h"
#include "engine/FakeBackSaver.h"
#include "engine/SaverFolders.h"

#include <QFileInfo>

namespace kestro {

namespace {

constexpr Rect frame{{10, 20}, {300, 200}};

class BackSaverHostTest : public EngineTest {
protected:
    std::shared_ptr<ScreenSaverView> load(const QString& path, bool isPreview = false)
    {
        return host.loadOtherSaverWithFrameIsPreview(path, frame, isPreview, desktop);
    }
    [[nodiscard]] QString mine(const QString& name) const { return folders.savers() + u'/' + name; }
    [[nodiscard]] QString slidePreferences() const
    {
        return folders.byHost() + QStringLiteral("/com.apple.screensaver.slideshow.0017f2.plist");
    }
    static QVariantMap pointingAt(const QString& folder) { return {{QStringLiteral("SlideFolder"), folder}}; }

    SaverFolders folders;
    BackSaverHost host{folders.home()};
};

} // namespace

TEST_F(BackSaverHostTest, reloadBackSavers_offersNothing_whenThereIsNone)
{
    host.reloadBackSavers();
    EXPECT_TRUE(host.backSaverList().isEmpty());
    EXPECT_EQ(host.backSaverPopup(), QStringList{"Disable"});
}

TEST_F(BackSaverHostTest, reloadBackSavers_takesBothKindsOfBundlesOnly)
{
    for (const char* name : {"Kestro.saver", "B.saver", "C.slideSaver", "notes.txt", "D.Saver", "E.saver.old",
                             "F.slidesaver", ".saver", "saver"})
        SaverFolders::putFile(mine(name) + QStringLiteral("/Contents/Info.plist"));
    host.reloadBackSavers();
    EXPECT_EQ(host.backSaverList(), (QStringList{mine("B.saver"), mine("C.slideSaver")}));
    EXPECT_EQ(host.backSaverPopup(), (QStringList{"Disable", "B.saver", "C.slideSaver"}));
}

TEST_F(BackSaverHostTest, reloadBackSavers_listsTheFoldersInTheirOrder_withWhatIsInTwoTwice)
{
    const QString everyones = folders.root() + QStringLiteral("/Library/Screen Savers/");
    const QString systems = folders.root() + QStringLiteral("/System/Library/Screen Savers/");
    SaverFolders::putFile(mine("A.saver"));
    SaverFolders::putFile(mine("M.saver"));
    SaverFolders::putFile(systems + QStringLiteral("M.saver"));
    SaverFolders::putFile(everyones + QStringLiteral("Z.saver"));
    host.reloadBackSavers();
    EXPECT_EQ(host.backSaverList(),
              (QStringList{everyones + "Z.saver", systems + "M.saver", mine("A.saver"), mine("M.saver")}));
    EXPECT_EQ(host.backSaverPopup(), (QStringList{"Disable", "Z.saver", "M.saver", "A.saver", "M.saver"}));
}

TEST_F(BackSaverHostTest, reloadBackSavers_forgetsWhatItListedBefore)
{
    SaverFolders::putFile(mine("A.saver"));
    host.reloadBackSavers();
    QFile::remove(mine("A.saver"));
    SaverFolders::putFile(mine("B.saver"));
    host.reloadBackSavers();
    EXPECT_EQ(host.backSaverList(), QStringList{mine("B.saver")});
}

TEST_F(BackSaverHostTest, load_makesAViewOfThePrincipalClass)
{
    const QString path = SaverFolders::putBundle(mine("A.saver"), "FakeBackSaver");
    for (const bool isPreview : {false, true}) {
        const auto view = load(path, isPreview);
        ASSERT_NE(dynamic_cast<FakeBackSaver*>(view.get()), nullptr);
        EXPECT_EQ(view->frame(), frame);
        EXPECT_EQ(view->isPreview(), isPreview);
    }
    EXPECT_TRUE(log.empty());
}

TEST_F(BackSaverHostTest, load_findsASystemSaverBelowThePlatformRoot)
{
    const QString path = QStringLiteral("/System/Library/Screen Savers/Kestro Test.saver");
    SaverFolders::putBundle(folders.root() + path, "FakeBackSaver");
    EXPECT_NE(load(path), nullptr);
}

TEST_F(BackSaverHostTest, load_saysWhatFailed)
{
    SaverFolders::putFile(mine("File.saver"));
    SaverFolders::putBundle(mine("Wrong.saver"), "NoSaver");
    SaverFolders::putBundle(mine("Nameless.saver"), "");
    SaverFolders::putBundle(mine("Nothing.saver"), "NoView");
    SaverFolders::putBundle(mine("Throwing.saver"), "Throws");
    struct Case {
        const char* name;
        int notASaver;
        int noClass;
        int noView;
    };
    for (const Case& each :
         {Case{"Missing.saver", 1, 1, 0}, Case{"File.saver", 1, 1, 0}, Case{"Wrong.saver", 0, 1, 0},
          Case{"Nameless.saver", 0, 1, 0}, Case{"Nothing.saver", 0, 0, 1}, Case{"Throwing.saver", 0, 0, 1}}) {
        log.clear();
        EXPECT_EQ(load(mine(each.name)), nullptr) << each.name;
        EXPECT_EQ(logged(QStringLiteral("Not a screensaver. ") + mine(each.name)), each.notASaver)
            << each.name;
        EXPECT_EQ(logged("Cannot get a class."), each.noClass) << each.name;
        EXPECT_EQ(logged("Failed to create background saver."), each.noView) << each.name;
    }
}

TEST_F(BackSaverHostTest, load_isLoadingOnlyMeanwhile)
{
    EXPECT_FALSE(host.isLoading());
    EXPECT_EQ(load(mine("Missing.saver")), nullptr);
    EXPECT_FALSE(host.isLoading());
}

TEST_F(BackSaverHostTest, slideShow_isShownByTheSaverOfPictureFolders)
{
    folders.putPictureFolderSaver();
    SaverFolders::putPreferences(slidePreferences(), pointingAt("/home/me/Holiday"));
    const auto view = load(mine("Five.slideSaver"));
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->frame(), frame);
    EXPECT_EQ(SaverFolders::preferences(slidePreferences()).value("SlideFolder"),
              mine("Five.slideSaver/Contents/Resources"));
    host.restoreSlideFolder();
    EXPECT_EQ(SaverFolders::preferences(slidePreferences()), pointingAt("/home/me/Holiday"));
    EXPECT_TRUE(log.empty());
}

TEST_F(BackSaverHostTest, slideShow_isRedirectedByTheFirstViewOnly)
{
    folders.putPictureFolderSaver();
    SaverFolders::putPreferences(slidePreferences(), pointingAt("/home/me/Holiday"));
    EXPECT_NE(load(mine("One.slideSaver")), nullptr);
    EXPECT_NE(load(mine("Two.slideSaver")), nullptr);
    EXPECT_EQ(SaverFolders::preferences(slidePreferences()).value("SlideFolder"),
              mine("One.slideSaver/Contents/Resources"));
}

TEST_F(BackSaverHostTest, slideShow_isNotLoadedNorTalkedAbout_whenNoScreenSaverHasPreferences)
{
    folders.putPictureFolderSaver();
    EXPECT_EQ(load(mine("Five.slideSaver")), nullptr);
    EXPECT_TRUE(log.empty());
    EXPECT_FALSE(QFileInfo::exists(folders.byHost()));
}

TEST_F(BackSaverHostTest, slideShow_isShown_whenThePreferencesCannotBeChanged)
{
    folders.putPictureFolderSaver();
    SaverFolders::putFile(slidePreferences());
    EXPECT_NE(load(mine("Five.slideSaver")), nullptr);
    EXPECT_EQ(log, std::vector<QString>{"SlideFolder changing failed."});
}

TEST_F(BackSaverHostTest, slideShow_saysWhatFailed_withoutTheSaverOfPictureFolders)
{
    SaverFolders::putPreferences(slidePreferences(), pointingAt("/home/me/Holiday"));
    EXPECT_EQ(load(mine("Five.slideSaver")), nullptr);
    EXPECT_EQ(logged("Cannot get a class."), 1);
    host.restoreSlideFolder();
    EXPECT_EQ(SaverFolders::preferences(slidePreferences()), pointingAt("/home/me/Holiday"));
}

TEST_F(BackSaverHostTest, slideShow_isToldByItsExtensionAlone)
{
    folders.putPictureFolderSaver();
    SaverFolders::putPreferences(slidePreferences(), pointingAt("/home/me/Holiday"));
    for (const char* name : {"A.slidesaver", "A.slideSaver.saver", "slideSaver", ".slideSaver"}) {
        EXPECT_EQ(load(mine(name)), nullptr) << name;
        EXPECT_EQ(SaverFolders::preferences(slidePreferences()), pointingAt("/home/me/Holiday")) << name;
    }
    EXPECT_NE(load(mine("A.slideSaver/")), nullptr);
}

} // namespace kestro
