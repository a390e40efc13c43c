// How entries come into the playlist that is edited, and go.

#include "config_ui/ConfigFixture.h"

namespace kestro {

namespace {

const QString invalidURL = QStringLiteral("Invalid URL string.");
const QString lastFolder = QStringLiteral("SSLastPath");

class ConfigModelPlaylistTest : public ConfigFixture {
protected:
    /// Chooses these files in the open panel.
    void choose(const QStringList& files)
    {
        panels.choice = ConfigPanels::Choice{files, QStringLiteral("/movies")};
        openList({}).selectMovie();
    }
};

} // namespace

TEST_F(ConfigModelPlaylistTest, selectMovie_startsInTheFolderOfLastTime)
{
    open().selectMovie();
    defaults.setValue(lastFolder, "/home/me/Movies");
    open().selectMovie();
    EXPECT_EQ(panels.folders, (std::vector<QString>{"", "/home/me/Movies"}));
}

TEST_F(ConfigModelPlaylistTest, selectMovie_changesNothing_whenCancelled)
{
    defaults.setValue(lastFolder, "/before");
    openList({movie("a.mov")}).selectMovie();
    EXPECT_EQ(listed(), QStringList{movie("a.mov")});
    EXPECT_EQ(defaults.value(lastFolder), "/before");
    EXPECT_TRUE(calls.empty());
}

TEST_F(ConfigModelPlaylistTest, selectMovie_appendsTheFile)
{
    choose({"/movies/My Movie.mov"});
    EXPECT_EQ(listed(), QStringList{"file:///movies/My%20Movie.mov"});
    EXPECT_EQ(defaults.value(lastFolder), "/movies");
    EXPECT_TRUE(panels.alerts.empty());
}

TEST_F(ConfigModelPlaylistTest, selectMovie_alerts_whenTheOnlyFileIsRefused)
{
    choose({"/movies/page.html"});
    EXPECT_TRUE(listed().isEmpty());
    EXPECT_EQ(panels.alerts, std::vector<QString>{invalidURL});
    EXPECT_EQ(defaults.value(lastFolder), "/movies");
}

TEST_F(ConfigModelPlaylistTest, selectMovie_skipsRefusedFilesInSilence_amongSeveral)
{
    choose({"/movies/b.mov", "/movies/link.QT", "/movies/a.mov"});
    EXPECT_EQ(listed(), (QStringList{"file:///movies/b.mov", "file:///movies/a.mov"}));
    choose({"/movies/x.php", "/movies/y.html"});
    EXPECT_TRUE(listed().isEmpty());
    EXPECT_TRUE(panels.alerts.empty());
}

TEST_F(ConfigModelPlaylistTest, selectMovie_appliesTheRuleOfBackAndForth)
{
    choose({"/movies/a.mov"});
    panels.choice->files = {"/movies/b.mov"};
    auto& model = openList({movie("a.mov")}, {{"BackAndForth", "1"}});
    model.selectMovie();
    EXPECT_FALSE(model.controls().backAndForthChk);
    EXPECT_FALSE(model.enabling().backAndForthChk);
}

TEST_F(ConfigModelPlaylistTest, selectFolder_appendsOneEntry_forAllThatLiesBelow)
{
    panels.chosenFolder = "/movies/My Films";
    defaults.setValue(lastFolder, "/before");
    openList({movie("a.mov")}).selectFolder();
    EXPECT_EQ(listed(), (QStringList{movie("a.mov"), "folder:///movies/My%20Films?recursive=1"}));
    EXPECT_EQ(panels.folders, std::vector<QString>{"/before"});
    EXPECT_EQ(defaults.value(lastFolder), "/movies/My Films");
}

TEST_F(ConfigModelPlaylistTest, selectFolder_changesNothing_whenCancelled)
{
    defaults.setValue(lastFolder, "/before");
    openList({movie("a.mov")}).selectFolder();
    EXPECT_EQ(listed(), QStringList{movie("a.mov")});
    EXPECT_EQ(defaults.value(lastFolder), "/before");
}

TEST_F(ConfigModelPlaylistTest, addMovieFiles_leavesTheFolderOfLastTimeAlone)
{
    openList({}).addMovieFiles({"/movies/a.mov"});
    EXPECT_EQ(listed(), QStringList{"file:///movies/a.mov"});
    EXPECT_FALSE(defaults.contains(lastFolder));
}

TEST_F(ConfigModelPlaylistTest, deleteMovie_removesTheRows)
{
    openList({movie("0"), movie("1"), movie("2"), movie("3")}).deleteMovie({2, 0});
    EXPECT_EQ(listed(), (QStringList{movie("1"), movie("3")}));
}

TEST_F(ConfigModelPlaylistTest, closeURLPanel_closesAndAddsNothing_whenCancelled)
{
    EXPECT_TRUE(openList({}).closeURLPanel(0, movie("a.mov")));
    EXPECT_TRUE(openList({}).closeURLPanel(0, "no url"));
    EXPECT_TRUE(listed().isEmpty());
    EXPECT_TRUE(panels.alerts.empty());
}

TEST_F(ConfigModelPlaylistTest, closeURLPanel_addsTheURLAndCloses)
{
    auto& model = openList({movie("a.mov")}, {{"BackAndForth", "1"}});
    EXPECT_TRUE(model.closeURLPanel(1, "http://Example.COM/b.swf"));
    EXPECT_EQ(listed(), (QStringList{movie("a.mov"), "http://Example.COM/b.swf"}));
    EXPECT_FALSE(model.controls().backAndForthChk);
    EXPECT_FALSE(model.enabling().backAndForthChk);
}

TEST_F(ConfigModelPlaylistTest, closeURLPanel_alertsAndStaysOpen_whenTheTextIsNoMovieURL)
{
    auto& model = openList({});
    for (const char* text : {"", "no url", "a.mov", "http://m/page.htm", "http://m/page.Html"}) {
        panels.alerts.clear();
        EXPECT_FALSE(model.closeURLPanel(1, text)) << text;
        EXPECT_EQ(panels.alerts, std::vector<QString>{invalidURL}) << text;
    }
    EXPECT_TRUE(listed().isEmpty());
}

TEST_F(ConfigModelPlaylistTest, addURLList_appendsUnchecked)
{
    auto& model = openList({movie("a.mov")});
    model.addURLList({QUrl(movie("page.html")), QUrl("auto://LatestTrailers/3/640")});
    EXPECT_EQ(listed(), (QStringList{movie("a.mov"), movie("page.html"), "auto://LatestTrailers/3/640"}));
    EXPECT_FALSE(model.enabling().backAndForthChk);
}

TEST_F(ConfigModelPlaylistTest, editEntry_takesAnyURL_andIgnoresOtherText)
{
    auto& model = openList({movie("a.mov"), movie("b.mov")});
    EXPECT_TRUE(model.editEntry(1, movie("page.html")));
    EXPECT_FALSE(model.editEntry(0, "no url"));
    EXPECT_EQ(listed(), (QStringList{movie("a.mov"), movie("page.html")}));
    EXPECT_TRUE(panels.alerts.empty());
}

TEST_F(ConfigModelPlaylistTest, openTrailerPanel_showsItForThisSheet)
{
    auto& model = open();
    model.openTrailerPanel();
    EXPECT_EQ(trailers.shownFor, &model);
}

TEST_F(ConfigModelPlaylistTest, openTrailerPanel_doesNothing_whereThereIsNone)
{
    ConfigModel model({saver, panels, defaults});
    model.openTrailerPanel();
    model.closeConfig(0);
    EXPECT_EQ(trailers.shownFor, nullptr);
    EXPECT_EQ(calls, Calls{"end sheet"});
}

} // namespace kestro
