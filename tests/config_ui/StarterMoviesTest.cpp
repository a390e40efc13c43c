#include "config_ui/StarterMovies.h"

#include "config_ui/BareMachine.h"
#include "support/WaitUntil.h"

#include <map>

namespace kestro {

namespace {

class StarterMoviesTest : public testing::Test {
protected:
    /// Waits until it is known what there is of that kind, and answers it.
    QStringList found(StarterMovies::Kind kind)
    {
        EXPECT_TRUE(waitUntil([&] { return files.contains(kind); }));
        return files[kind];
    }
    StarterMovies make(std::chrono::milliseconds longest)
    {
        return StarterMovies(
            [this](StarterMovies::Kind kind, const QStringList& there) { files[kind] = there; }, longest);
    }

    BareMachine machine;
    std::map<StarterMovies::Kind, QStringList> files;
    StarterMovies movies = make(std::chrono::minutes(1));
};

} // namespace

TEST_F(StarterMoviesTest, look_findsWhatIsCalledAsMoviesAre_amongThePersonsVideos)
{
    const QStringList expected{machine.putVideo("a.mkv"), machine.putVideo("b/a.mp4"),
                               machine.putVideo("c.webm")};
    machine.putVideo("notes.txt");
    movies.look();
    EXPECT_EQ(found(StarterMovies::Videos), expected);
}

TEST_F(StarterMoviesTest, look_goesWhereTheDesktopHasTheVideos)
{
    const QString films = machine.home() + "/Films";
    machine.nameVideosFolder(films);
    machine.putVideo("a.mkv");
    const QString there = machine.putVideo("../Films/b.mkv");
    movies.look();
    EXPECT_EQ(found(StarterMovies::Videos), QStringList{QDir::cleanPath(there)});
}

TEST_F(StarterMoviesTest, look_leavesTheHomeFolderAlone_whenThatIsNamedForVideos)
{
    machine.nameVideosFolder("$HOME/");
    machine.putVideo("a.mkv");
    EXPECT_EQ(StarterMovies::videosFolder(), QString());
    movies.look();
    EXPECT_EQ(found(StarterMovies::Intro), QStringList());
    EXPECT_FALSE(files.contains(StarterMovies::Videos));
}

TEST_F(StarterMoviesTest, look_findsTheThemeMoviesInOrder)
{
    const QStringList expected{machine.putTheme("Contents/1.theme/a.mov"),
                               machine.putTheme("Contents/2.mov")};
    machine.putTheme("Contents/3.MOV");
    machine.putTheme("Contents/3.mp4");
    movies.look();
    EXPECT_EQ(found(StarterMovies::Themes), expected);
}

TEST_F(StarterMoviesTest, look_findsTheIntroThatADefaultPlaylistWouldHave)
{
    const QString ofPackage = machine.putIntro();
    movies.look();
    EXPECT_EQ(found(StarterMovies::Intro), QStringList{ofPackage});
    files.clear();
    const QString ofDesktop = machine.putIntro(defalutMovieURL);
    movies.look();
    EXPECT_EQ(found(StarterMovies::Intro), QStringList{ofDesktop});
}

TEST_F(StarterMoviesTest, look_findsNothing_whereThereIsNothing)
{
    movies.look();
    for (const auto kind : {StarterMovies::Videos, StarterMovies::Themes, StarterMovies::Intro})
        EXPECT_EQ(found(kind), QStringList());
}

TEST_F(StarterMoviesTest, look_takesWhatWasFound_whenADiskTakesTooLong)
{
    machine.nameVideosFolder("/usr");
    StarterMovies hasty = make(std::chrono::milliseconds(0));
    hasty.look();
    EXPECT_EQ(found(StarterMovies::Videos), QStringList());
}

} // namespace kestro
