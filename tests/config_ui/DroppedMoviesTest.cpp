#include "config_ui/DroppedMovies.h"

#include "config_ui/ConfigDoubles.h"
#include "support/WaitUntil.h"

#include <QDir>
#include <QFile>
#include <QMimeData>
#include <QUrl>

#include <gtest/gtest.h>

namespace kestro {

namespace {

const QString waiting = QStringLiteral("Looking for movies in what was dropped…");
const QString endOfWait = QStringLiteral("end wait");

class DroppedMoviesTest : public testing::Test {
protected:
    QString make(const QString& name) const
    {
        QDir(folder.path()).mkpath(QFileInfo(name).path());
        EXPECT_TRUE(QFile(folder.filePath(name)).open(QIODevice::WriteOnly));
        return folder.filePath(name);
    }
    [[nodiscard]] QUrl url(const QString& name) const { return QUrl::fromLocalFile(folder.filePath(name)); }
    /// What is added of these, or the alert that comes instead.
    QStringList moviesOf(const QList<QUrl>& urls)
    {
        movies.look(urls);
        EXPECT_TRUE(waitUntil([this] { return !added.isEmpty() || !panels.alerts.empty(); }));
        return added;
    }

    QTemporaryDir folder;
    Calls calls;
    PanelsDouble panels{calls};
    QStringList added;
    DroppedMovies movies{panels, [this](const QStringList& files) { added = files; }};
};

} // namespace

TEST_F(DroppedMoviesTest, files_areTaken_whateverTheyAreCalled)
{
    const QString file = make("notes.txt");
    EXPECT_EQ(moviesOf({url("notes.txt"), url("missing.mov"), QUrl("http://m/a.mov")}), QStringList{file});
}

TEST_F(DroppedMoviesTest, folders_giveWhatIsCalledAsMoviesAre_sorted)
{
    QStringList expected{make("alone.mov")};
    for (const char* name : {"in/a/z.MP4", "in/b.mkv", "in/c.mov", "in/d/a.mov", "in/d/b.mov", "in/e.webm"})
        expected.append(make(name));
    make("in/page.html");
    EXPECT_EQ(moviesOf({url("alone.mov"), url("in")}), expected);
}

TEST_F(DroppedMoviesTest, wait_isOverOnceTheMoviesWereFound)
{
    make("a.mov");
    static_cast<void>(moviesOf({url("a.mov")}));
    EXPECT_EQ(calls, (Calls{waiting, endOfWait}));
}

TEST_F(DroppedMoviesTest, giveUp_endsTheWait_andNothingIsAddedOfIt)
{
    make("a.mov");
    const QString second = make("b.mov");
    movies.look({url("a.mov")});
    panels.giveUp();
    EXPECT_EQ(calls, (Calls{waiting, endOfWait}));
    EXPECT_EQ(moviesOf({url("b.mov")}), QStringList{second});
}

TEST_F(DroppedMoviesTest, whatIsDroppedMeanwhile_comesAfterWhatCameBefore)
{
    const QString first = make("b.mov");
    const QString second = make("a.mov");
    movies.look({url("b.mov")});
    EXPECT_EQ(moviesOf({url("a.mov")}), (QStringList{first, second}));
}

TEST_F(DroppedMoviesTest, alert_saysThatThereAreNone)
{
    make("in/page.html");
    for (const QList<QUrl>& urls : {QList<QUrl>{url("in")}, QList<QUrl>{}}) {
        panels.alerts.clear();
        EXPECT_EQ(moviesOf(urls), QStringList());
        EXPECT_EQ(panels.alerts, std::vector<QString>{"There are no movies in what was dropped."});
    }
}

TEST_F(DroppedMoviesTest, alert_saysThatTheDiskDoesNotAnswer_whenItTakesTooLong)
{
    DroppedMovies hasty(
        panels, [this](const QStringList& files) { added = files; }, std::chrono::milliseconds(0));
    hasty.look({QUrl::fromLocalFile("/usr")});
    ASSERT_TRUE(waitUntil([this] { return !panels.alerts.empty(); }));
    EXPECT_EQ(panels.alerts,
              std::vector<QString>{"The disk does not answer. Movies may be missing from what was dropped."});
}

TEST_F(DroppedMoviesTest, holdsFiles_isTrueForWhatIsOnThisMachine)
{
    QMimeData dropped;
    dropped.setUrls({QUrl("http://m/a.mov"), url("in")});
    EXPECT_TRUE(holdsFiles(dropped));
    dropped.setUrls({QUrl("http://m/a.mov"), QUrl("file://other/tmp")});
    EXPECT_FALSE(holdsFiles(dropped));
}

} // namespace kestro
