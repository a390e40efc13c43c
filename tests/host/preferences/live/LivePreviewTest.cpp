#include "host/preferences/live/LivePreview.h"

#include "host/preferences/live/LiveTest.h"
#include "host/preferences/live/NotedBrowser.h"
#include "widgets/SurfaceWidget.h"

#include <QDir>
#include <QTemporaryDir>

namespace kestro {

namespace {

class LivePreviewTest : public LiveTest {
protected:
    [[nodiscard]] std::unique_ptr<LivePreview> preview(const SaverPreview::ViewFactory& factory)
    {
        const auto sheet = [this](ConfigurableSaver& of, TrailerBrowser& trailers, QWidget* over) {
            sheetOf = &of;
            browser = &trailers;
            sheets.push_back(new QDialog(over));
            return sheets.back().get();
        };
        const auto trailers = [this](MovieLibrary& movies) {
            browserMovies = &movies;
            return std::make_unique<NotedBrowser>(journal);
        };
        return std::make_unique<LivePreview>(LivePreview::Parts{factory, sheet, trailers});
    }
    [[nodiscard]] std::unique_ptr<LivePreview> startedPreview()
    {
        auto made = preview(views());
        EXPECT_TRUE(made->start([] {}));
        return made;
    }

    QWidget window;
    ConfigurableSaver* sheetOf = nullptr;
    TrailerBrowser* browser = nullptr;
    MovieLibrary* browserMovies = nullptr;
    std::vector<QPointer<QDialog>> sheets;
};

} // namespace

TEST_F(LivePreviewTest, start_tellsThatTheSaverIsMade_beforeItRuns)
{
    const auto shown = preview(views());
    EXPECT_FALSE(shown->hasOptions());
    QStringList before;
    bool hadOptions = false;
    ASSERT_TRUE(shown->start([&] {
        before = journal;
        hadOptions = shown->hasOptions();
    }));
    EXPECT_EQ(before, QStringList());
    EXPECT_TRUE(hadOptions);
    EXPECT_EQ(journal, QStringList{QStringLiteral("start")});
    EXPECT_TRUE(shown->isRunning());
}

TEST_F(LivePreviewTest, start_fails_whenThereIsNoSaver)
{
    const auto shown = preview([](const Rect&, Desktop&) { return nullptr; });
    bool isMade = false;
    EXPECT_FALSE(shown->start([&isMade] { isMade = true; }));
    EXPECT_FALSE(isMade);
}

TEST_F(LivePreviewTest, options_openOneSheetOfTheSaver)
{
    window.show();
    const auto shown = startedPreview();
    shown->openOptions(window);
    ASSERT_EQ(sheets.size(), 1U);
    EXPECT_EQ(sheetOf, saver.get());
    EXPECT_EQ(sheets.front()->parentWidget(), &window);
    EXPECT_TRUE(sheets.front()->isVisible());
    EXPECT_TRUE(sheets.front()->isModal());
    sheets.front()->close();
    shown->openOptions(window);
    EXPECT_EQ(sheets.size(), 1U);
    EXPECT_TRUE(sheets.front()->isVisible());
}

TEST_F(LivePreviewTest, options_openNothing_whenTheSaverHasNone)
{
    const auto shown = preview([this](const Rect& frame, Desktop&) {
        return std::make_shared<FakeSaver>(frame, QStringLiteral("a"), journal);
    });
    ASSERT_TRUE(shown->start([] {}));
    EXPECT_FALSE(shown->hasOptions());
    shown->openOptions(window);
    EXPECT_TRUE(sheets.empty());
}

// Without a preference file of a screen saver no slide show can be shown.
TEST_F(LivePreviewTest, options_makeThePreferencesOfASlideShow_whereOneIsOffered)
{
    const QTemporaryDir home;
    qputenv("KESTRO_HOME", QFile::encodeName(home.path()));
    const QDir byHost(home.filePath(QStringLiteral("Library/Preferences/ByHost")));
    const auto shown = startedPreview();
    saver->backSavers = {QStringLiteral("/savers/Blue.saver")};
    shown->openOptions(window);
    EXPECT_FALSE(byHost.exists());
    saver->backSavers.append(QStringLiteral("/savers/Five.slideSaver"));
    shown->openOptions(window);
    EXPECT_EQ(byHost.entryList({QStringLiteral("com.apple.screensaver.*.plist")}).size(), 1);
    qunsetenv("KESTRO_HOME");
}

TEST_F(LivePreviewTest, trailers_areShownWithTheMovieLibraryOfTheSaver)
{
    const auto shown = startedPreview();
    shown->openOptions(window);
    NoReceiver receiver;
    browser->showPanel(receiver);
    EXPECT_EQ(browserMovies, &saver->movies());
}

TEST_F(LivePreviewTest, sheet_goesBeforeTheSaverThatItIsOf)
{
    auto shown = startedPreview();
    shown->openOptions(window);
    shown.reset();
    EXPECT_TRUE(sheets.front().isNull());
}

TEST_F(LivePreviewTest, end_stopsTheSaverAndClosesTheTrailers)
{
    const auto shown = startedPreview();
    shown->openOptions(window);
    NoReceiver receiver;
    browser->showPanel(receiver);
    shown->end();
    EXPECT_FALSE(shown->isRunning());
    EXPECT_EQ(journal, QStringList({QStringLiteral("start"), QStringLiteral("show"), QStringLiteral("rest 1"),
                                    QStringLiteral("stop"), QStringLiteral("close")}));
}

TEST_F(LivePreviewTest, pause_isTheSavers)
{
    const auto shown = startedPreview();
    shown->setPaused(Preview::Unseen, true);
    EXPECT_FALSE(shown->isRunning());
    shown->setPaused(Preview::Unseen, false);
    EXPECT_TRUE(shown->isRunning());
}

} // namespace kestro
