#include "settings/WatchedFolders.h"

#include "platform/base/Bounds.h"
#include "platform/base/Log.h"
#include "platform/base/Random.h"
#include "support/WaitUntil.h"

#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <gtest/gtest.h>

namespace kestro {

namespace {

class WatchedFoldersTest : public testing::Test {
protected:
    ~WatchedFoldersTest() override { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    void make(const QString& name) const
    {
        EXPECT_TRUE(QFile(folder.filePath(name)).open(QIODevice::WriteOnly));
    }
    static void write(const QString& path, const QByteArray& text)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(text), text.size());
    }
    [[nodiscard]] FolderEntry entry(FolderEntry::Order order = FolderEntry::Order::Name) const
    {
        return {folder.path(), false, order};
    }
    static bool isKnown(const FolderMovies& movies)
    {
        return waitUntil([&movies] { return movies.revision() > 0; });
    }

    int argumentCount = 1;
    char program[8] = "folders";
    char* words[2] = {program, nullptr};
    QCoreApplication application{argumentCount, words};
    QTemporaryDir folder;
    SeededRandom random{3};
    WatchedFolders folders{random};
};

} // namespace

TEST_F(WatchedFoldersTest, folder_isKnownLater_andStaysUpToDate)
{
    make("a.mov");
    const auto movies = folders.follow(entry(), false);
    EXPECT_EQ(movies->revision(), 0);
    ASSERT_TRUE(isKnown(*movies));
    EXPECT_EQ(movies->movies(), QList<QUrl>{QUrl::fromLocalFile(folder.filePath("a.mov"))});
    EXPECT_TRUE(movies->isWhole());
    make("b.mov");
    ASSERT_TRUE(waitUntil([&movies] { return movies->movies().size() == 2; }));
    EXPECT_EQ(movies->revision(), 2);
}

TEST_F(WatchedFoldersTest, playlistFile_isReadAnew_whenItIsReplaced)
{
    const QString list = folder.filePath("films.m3u");
    write(list, "a.mov\n");
    const auto movies = folders.follow({.path = list, .isList = true}, false);
    EXPECT_EQ(movies->revision(), 0);
    ASSERT_TRUE(isKnown(*movies));
    EXPECT_EQ(movies->movies(), QList<QUrl>{QUrl::fromLocalFile(folder.filePath("a.mov"))});
    write(folder.filePath("new"), "b.mov\nc.mov\n");
    ASSERT_TRUE(QFile::remove(list) && QFile::rename(folder.filePath("new"), list));
    ASSERT_TRUE(waitUntil([&movies] { return movies->movies().size() == 2; }));
}

TEST_F(WatchedFoldersTest, playlistFile_isReadAsAWhole_andNothingWhereItIsTooLong)
{
    const QString list = folder.filePath("films.m3u");
    write(list, QByteArray(1024 * 1024 - 6, '#') + "\na.mov");
    const auto longest = folders.follow({.path = list, .isList = true}, false);
    ASSERT_TRUE(isKnown(*longest));
    EXPECT_EQ(longest->movies().size(), 1);
    write(list, QByteArray(1024 * 1024 - 5, '#') + "\na.mov");
    ASSERT_TRUE(waitUntil([&longest] { return longest->movies().isEmpty(); }));
}

TEST_F(WatchedFoldersTest, playlistFile_holdsNothing_whereItIsNotThere)
{
    const auto movies = folders.follow({.path = folder.filePath("films.xspf"), .isList = true}, false);
    ASSERT_TRUE(isKnown(*movies));
    EXPECT_TRUE(movies->movies().isEmpty());
}

TEST_F(WatchedFoldersTest, folder_isShared_byThoseWhoAskTheSame)
{
    const auto movies = folders.follow(entry(), false);
    EXPECT_EQ(folders.follow(entry(), false), movies);
    EXPECT_NE(folders.follow(entry(), true), movies);
    EXPECT_NE(folders.follow(entry(FolderEntry::Order::Newest), false), movies);
}

TEST_F(WatchedFoldersTest, folder_isShuffled_whereThatIsAskedFor)
{
    for (int number = 10; number < 60; ++number)
        make(QStringLiteral("%1.mov").arg(number));
    const auto sorted = folders.follow(entry(), false);
    const auto shuffled = folders.follow(entry(FolderEntry::Order::Shuffled), false);
    ASSERT_TRUE(isKnown(*sorted) && isKnown(*shuffled));
    QList<QUrl> movies = shuffled->movies();
    EXPECT_NE(movies, sorted->movies());
    std::sort(movies.begin(), movies.end());
    EXPECT_EQ(movies, sorted->movies());
}

TEST_F(WatchedFoldersTest, furtherFolders_areLeftOut_whenThereAreTooMany)
{
    QStringList log;
    const LogCapture capture([&log](const QString& line) { log.append(line); });
    std::vector<std::shared_ptr<const FolderMovies>> followed;
    for (std::size_t number = 0; number < Bounds::watchedFolders; ++number)
        followed.push_back(folders.follow({folder.filePath(QString::number(number))}, false));
    EXPECT_TRUE(log.isEmpty());
    make("a.mov");
    const auto tooMany = folders.follow(entry(), false);
    EXPECT_EQ(tooMany->revision(), 1);
    EXPECT_TRUE(tooMany->movies().isEmpty());
    EXPECT_EQ(
        log, QStringList(QStringLiteral("More than 32 folders and lists are in the playlist: %1 is left out.")
                             .arg(folder.path())));
}

} // namespace kestro
