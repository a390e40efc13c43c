#include "config_ui/DroppedMovies.h"

#include <QDir>
#include <QFile>
#include <QMimeData>
#include <QTemporaryDir>
#include <QUrl>

#include <gtest/gtest.h>

namespace kestro {

namespace {

class DroppedMoviesTest : public testing::Test {
protected:
    QString make(const QString& name) const
    {
        QDir(folder.path()).mkpath(QFileInfo(name).path());
        EXPECT_TRUE(QFile(folder.filePath(name)).open(QIODevice::WriteOnly));
        return folder.filePath(name);
    }
    [[nodiscard]] QUrl url(const QString& name) const { return QUrl::fromLocalFile(folder.filePath(name)); }

    QTemporaryDir folder;
};

} // namespace

TEST_F(DroppedMoviesTest, files_areTaken_whateverTheyAreCalled)
{
    const QString file = make("notes.txt");
    EXPECT_EQ(droppedMovies({url("notes.txt"), url("missing.mov"), QUrl("http://m/a.mov")}),
              QStringList{file});
}

TEST_F(DroppedMoviesTest, folders_giveWhatIsCalledAsMoviesAre_sorted)
{
    const QString second = make("in/b.mkv");
    const QString first = make("in/a/z.MP4");
    make("in/.hidden.mp4");
    make("in/page.html");
    make("elsewhere/c.mov");
    ASSERT_TRUE(QFile::link(folder.filePath("elsewhere"), folder.filePath("in/link")));
    EXPECT_EQ(droppedMovies({url("in")}), (QStringList{first, second}));
}

TEST_F(DroppedMoviesTest, holdsFiles_isTrueForFilesAndFoldersOfThisMachine)
{
    make("in/a.mov");
    for (const QUrl& each : {url("in"), url("in/a.mov")}) {
        QMimeData dropped;
        dropped.setUrls({QUrl("http://m/a.mov"), each});
        EXPECT_TRUE(holdsFiles(dropped)) << qPrintable(each.toString());
    }
    QMimeData dropped;
    dropped.setUrls({QUrl("http://m/a.mov"), url("missing"), QUrl("file://other/tmp")});
    EXPECT_FALSE(holdsFiles(dropped));
}

} // namespace kestro
