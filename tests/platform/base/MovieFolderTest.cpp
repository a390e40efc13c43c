#include "platform/base/MovieFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <vector>

namespace kestro {

namespace {

constexpr std::chrono::minutes ample{3};

class MovieFolderTest : public testing::Test {
protected:
    QUrl make(const QString& name) const
    {
        EXPECT_TRUE(QFile(folder.filePath(name)).open(QIODevice::WriteOnly));
        return QUrl::fromLocalFile(folder.filePath(name));
    }

    QTemporaryDir folder;
};

} // namespace

TEST_F(MovieFolderTest, moviesIn_areThoseOfAWholeFolder)
{
    QList<QUrl> made;
    for (int number = 100; number < 400; ++number)
        made.append(make(QString::fromUtf8("ü %1.mov").arg(number)));
    make("text.txt");
    EXPECT_EQ(moviesIn({.path = folder.path()}, ample), made);
    EXPECT_EQ(moviesIn({.path = folder.path() + u'/'}, ample), made);
}

TEST_F(MovieFolderTest, moviesIn_areThoseBelow_whereThatIsAskedFor)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir("in"));
    const QUrl below = make("in/a.mov");
    EXPECT_EQ(moviesIn({.path = folder.path()}, ample), QList<QUrl>());
    EXPECT_EQ(moviesIn({.path = folder.path(), .isRecursive = true}, ample), QList<QUrl>{below});
}

TEST_F(MovieFolderTest, moviesIn_areNone_whereThereIsNoFolder)
{
    EXPECT_EQ(moviesIn({.path = folder.filePath("missing")}, ample), QList<QUrl>());
}

TEST_F(MovieFolderTest, moviesIn_areUnknown_onceNobodyWaits)
{
    std::vector<std::stop_source> sources(1);
    sources[0].request_stop();
    EXPECT_EQ(moviesIn({.path = QStringLiteral("/usr"), .isRecursive = true}, ample, sources[0].get_token()),
              std::nullopt);
    EXPECT_EQ(moviesIn({.path = QStringLiteral("/usr"), .isRecursive = true}, std::chrono::seconds(0)),
              std::nullopt);
}

} // namespace kestro
