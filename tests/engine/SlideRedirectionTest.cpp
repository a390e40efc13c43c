#include "engine/SlideRedirection.h"

#include "engine/SaverFolders.h"
#include "platform/base/Log.h"
#include "platform/base/ProcessMark.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>
#include <memory>
#include <unistd.h>

namespace kestro {

namespace {

const QString pictures = QStringLiteral("/savers/Five.slideSaver/Contents/Resources");
const QString holiday = QStringLiteral("/home/me/Holiday");

class SlideRedirectionTest : public testing::Test {
protected:
    [[nodiscard]] QString file(const char* name) const { return folders.byHost() + u'/' + name; }
    [[nodiscard]] QString usual() const { return file("com.apple.screensaver.slideshow.0017f2.plist"); }
    [[nodiscard]] QVariant folderIn(const QString& path) const
    {
        return SaverFolders::preferences(path).value(QStringLiteral("SlideFolder"));
    }
    static QVariantMap original()
    {
        return {{QStringLiteral("SlideFolder"), holiday}, {QStringLiteral("Zoom"), true}};
    }
    /// A process of its own, as far as redirecting goes: this one, unless another's mark is given.
    [[nodiscard]] std::unique_ptr<SlideRedirection> process(const QString& mark = markOfThisProcess()) const
    {
        return std::make_unique<SlideRedirection>(folders.home(), mark);
    }
    /// One that redirects, and is killed before it restores anything.
    void runKilled(const QString& folder = pictures) const
    {
        EXPECT_TRUE(process(QStringLiteral("%1 0").arg(getpid()))->redirect(folder));
    }
    /// Another process that still runs.
    static QString anotherMark() { return processMark(getppid()); }
    [[nodiscard]] int logged(const char* line) const { return static_cast<int>(log.count(line)); }

    SaverFolders folders;
    QStringList log;
    LogCapture capture{[this](const QString& line) { log.append(line); }};
};

} // namespace

TEST_F(SlideRedirectionTest, redirect_changesTheFolderOnly_andRestorePutsItBack)
{
    SaverFolders::putPreferences(usual(), original());
    const auto slides = process();
    EXPECT_TRUE(slides->redirect(pictures));
    EXPECT_EQ(folderIn(usual()), pictures);
    EXPECT_EQ(SaverFolders::preferences(usual()).value("Zoom"), true);
    slides->restore();
    EXPECT_EQ(SaverFolders::preferences(usual()), original());
    EXPECT_TRUE(log.isEmpty());
}

TEST_F(SlideRedirectionTest, redirect_refuses_whenNoScreenSaverHasPreferences)
{
    EXPECT_FALSE(process()->redirect(pictures));
    for (const char* name : {"com.apple.screensaver.plist", "com.apple.dock.0017f2.plist", "notes",
                             "org.apple.screensaver.0017f2.plist", "com.apple.screensaver.slideshow"})
        SaverFolders::putPreferences(file(name), {});
    EXPECT_FALSE(process()->redirect(pictures));
    EXPECT_TRUE(log.isEmpty());
    EXPECT_EQ(QDir(folders.byHost()).count(), 2U + 5U);
}

TEST_F(SlideRedirectionTest, redirect_takesTheFirstFileOfTheSlideShow)
{
    SaverFolders::putPreferences(file("com.apple.screensaver.0017f2.plist"), original());
    SaverFolders::putPreferences(file("com.apple.screensaver.slideshow.a.plist"), original());
    SaverFolders::putPreferences(file("com.apple.screensaver.slideshow.b.plist"), original());
    EXPECT_TRUE(process()->redirect(pictures));
    EXPECT_EQ(folderIn(file("com.apple.screensaver.0017f2.plist")), holiday);
    EXPECT_EQ(folderIn(file("com.apple.screensaver.slideshow.a.plist")), pictures);
    EXPECT_EQ(folderIn(file("com.apple.screensaver.slideshow.b.plist")), holiday);
}

TEST_F(SlideRedirectionTest, redirect_makesTheFileOfTheLastHost_forGood)
{
    SaverFolders::putPreferences(file("com.apple.screensaver.0001.plist"), {});
    SaverFolders::putPreferences(file("com.apple.screensaver.0002.plist"), {});
    const auto slides = process();
    EXPECT_TRUE(slides->redirect(pictures));
    const QString made = file("com.apple.screensaver.slideshow.0002.plist");
    const QVariantMap expected{{QStringLiteral("SlideFolder"), pictures}};
    EXPECT_EQ(SaverFolders::preferences(made), expected);
    slides->restore();
    EXPECT_EQ(SaverFolders::preferences(made), expected);
}

TEST_F(SlideRedirectionTest, redirect_doesNothingMore_whileRedirected)
{
    SaverFolders::putPreferences(usual(), original());
    const auto slides = process();
    EXPECT_TRUE(slides->redirect(pictures));
    EXPECT_TRUE(slides->redirect(QStringLiteral("/another")));
    EXPECT_EQ(folderIn(usual()), pictures);
    slides->restore();
    EXPECT_TRUE(slides->redirect(QStringLiteral("/another")));
    EXPECT_EQ(folderIn(usual()), QStringLiteral("/another"));
    slides->restore();
    EXPECT_EQ(SaverFolders::preferences(usual()), original());
}

TEST_F(SlideRedirectionTest, restore_happensOnce)
{
    SaverFolders::putPreferences(usual(), original());
    const auto slides = process();
    slides->restore();
    EXPECT_EQ(SaverFolders::preferences(usual()), original());
    EXPECT_TRUE(slides->redirect(pictures));
    slides->restore();
    SaverFolders::putPreferences(usual(), {{QStringLiteral("SlideFolder"), QStringLiteral("/elsewhere")}});
    slides->restore();
    EXPECT_EQ(folderIn(usual()), QStringLiteral("/elsewhere"));
    EXPECT_TRUE(log.isEmpty());
}

TEST_F(SlideRedirectionTest, restore_leavesTheFolder_whenThereWasNoneBefore)
{
    SaverFolders::putPreferences(usual(), {{QStringLiteral("Zoom"), true}});
    const auto slides = process();
    EXPECT_TRUE(slides->redirect(pictures));
    slides->restore();
    EXPECT_EQ(SaverFolders::preferences(usual()),
              (QVariantMap{{QStringLiteral("SlideFolder"), pictures}, {QStringLiteral("Zoom"), true}}));
}

TEST_F(SlideRedirectionTest, restore_saysSoAndGivesUp_whenTheFileCannotBeWritten)
{
    SaverFolders::putPreferences(usual(), original());
    const auto slides = process();
    EXPECT_TRUE(slides->redirect(pictures));
    QFile::remove(usual());
    slides->restore();
    EXPECT_EQ(log, QStringList{"Dictionary writing failed..."});
    slides->restore();
    EXPECT_EQ(logged("Dictionary writing failed..."), 1);
}

TEST_F(SlideRedirectionTest, redirect_saysSoAndLeavesTheFile_whenItCannotBeRead)
{
    SaverFolders::putFile(usual());
    const auto slides = process();
    EXPECT_TRUE(slides->redirect(pictures));
    EXPECT_EQ(log, QStringList{"SlideFolder changing failed."});
    slides->restore();
    EXPECT_EQ(log.size(), 1);
    QFile kept(usual());
    ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
    EXPECT_EQ(kept.readAll(), "no property list");
}

// Killed, a run restores nothing itself.
TEST_F(SlideRedirectionTest, killedRuns_areMadeGoodByTheNextRedirectionAndRestoration)
{
    SaverFolders::putPreferences(usual(), original());
    runKilled();
    runKilled();
    const auto next = process();
    EXPECT_TRUE(next->redirect(QStringLiteral("/another")));
    EXPECT_EQ(folderIn(usual()), QStringLiteral("/another"));
    next->restore();
    EXPECT_EQ(SaverFolders::preferences(usual()), original());
}

TEST_F(SlideRedirectionTest, makeGood_putsBackWhatAKilledRunHasLeft)
{
    SaverFolders::putPreferences(usual(), original());
    runKilled();
    process()->makeGood();
    EXPECT_EQ(SaverFolders::preferences(usual()), original());
}

TEST_F(SlideRedirectionTest, makeGood_leavesTheFolder_whileAProcessShowsIt)
{
    SaverFolders::putPreferences(usual(), original());
    runKilled();
    const auto running = process(anotherMark());
    EXPECT_TRUE(running->redirect(pictures));
    process()->makeGood();
    EXPECT_EQ(folderIn(usual()), pictures);
    running->makeGood();
    EXPECT_EQ(folderIn(usual()), pictures);
    running->restore();
    EXPECT_EQ(SaverFolders::preferences(usual()), original());
}

TEST_F(SlideRedirectionTest, makeGood_doesNothing_whenNothingWasLeft)
{
    process()->makeGood();
    EXPECT_FALSE(QFile::exists(usual()));
    SaverFolders::putPreferences(usual(), original());
    process()->makeGood();
    EXPECT_EQ(SaverFolders::preferences(usual()), original());
    EXPECT_TRUE(log.isEmpty());
}

// A preview, or a saver of another kind, that stops while a slide show runs elsewhere.
TEST_F(SlideRedirectionTest, restore_leavesTheFolderAlone_whereItWasNotRedirected)
{
    SaverFolders::putPreferences(usual(), original());
    const auto running = process(anotherMark());
    EXPECT_TRUE(running->redirect(pictures));
    process()->restore();
    EXPECT_EQ(folderIn(usual()), pictures);
    runKilled();
    process()->restore();
    EXPECT_EQ(folderIn(usual()), pictures);
    running->restore();
    EXPECT_EQ(SaverFolders::preferences(usual()), original());
}

TEST_F(SlideRedirectionTest, killedRun_isForgotten_whenTheUserChoseAnotherFolderSince)
{
    SaverFolders::putPreferences(usual(), original());
    runKilled();
    auto changed = SaverFolders::preferences(usual());
    changed[QStringLiteral("SlideFolder")] = QStringLiteral("/chosen");
    SaverFolders::putPreferences(usual(), changed);
    process()->makeGood();
    EXPECT_EQ(folderIn(usual()), QStringLiteral("/chosen"));
    const auto next = process();
    EXPECT_TRUE(next->redirect(pictures));
    next->restore();
    EXPECT_EQ(folderIn(usual()), QStringLiteral("/chosen"));
}

// One process a monitor, as under xscreensaver: the last one puts the folder back.
TEST_F(SlideRedirectionTest, twoProcesses_keepTheFolderUntilBothHaveStopped)
{
    for (const bool isFirstOut : {true, false}) {
        SaverFolders::putPreferences(usual(), original());
        const auto first = process();
        const auto second = process(anotherMark());
        EXPECT_TRUE(first->redirect(pictures));
        EXPECT_TRUE(second->redirect(pictures));
        (isFirstOut ? first : second)->restore();
        EXPECT_EQ(folderIn(usual()), pictures);
        (isFirstOut ? second : first)->restore();
        EXPECT_EQ(SaverFolders::preferences(usual()), original());
    }
}

TEST_F(SlideRedirectionTest, redirection_leavesNoLockBehind)
{
    SaverFolders::putPreferences(usual(), original());
    const auto slides = process();
    EXPECT_TRUE(slides->redirect(pictures));
    slides->restore();
    EXPECT_EQ(QDir(folders.byHost()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList{QStringLiteral("com.apple.screensaver.slideshow.0017f2.plist")});
}

} // namespace kestro
