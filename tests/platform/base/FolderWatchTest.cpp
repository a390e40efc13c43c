#include "platform/base/FolderWatch.h"

#include "platform/base/ChildProcess.h"
#include "platform/base/Paths.h"
#include "support/WaitUntil.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <optional>
#include <unistd.h>
#include <vector>

namespace kestro {

namespace {

class FolderWatchTest : public testing::Test {
protected:
    ~FolderWatchTest() override { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    struct Listing {
        QStringList names;
        bool isWhole;
    };

    void make(const QString& name, int second = 0) const
    {
        QDir(folder.path()).mkpath(QFileInfo(folder.filePath(name)).path());
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        const QDateTime written = QDateTime::fromSecsSinceEpoch(1'000'000 + second);
        ASSERT_TRUE(file.setFileTime(written, QFileDevice::FileModificationTime));
    }
    void start(MovieFolder wanted = {})
    {
        if (wanted.path.isEmpty()) wanted.path = folder.path();
        listings.clear();
        watch = FolderWatch::start(wanted, [this](const QList<QUrl>& movies, bool isWhole) {
            Listing listing{{}, isWhole};
            for (const QUrl& movie : movies)
                listing.names.append(movie.toLocalFile().mid(folder.path().size() + 1));
            listings.push_back(listing);
        });
        ASSERT_NE(watch, nullptr);
    }
    bool hears(std::size_t listed)
    {
        return waitUntil([this, listed] { return listings.size() >= listed; });
    }
    QStringList namesIn(const MovieFolder& wanted)
    {
        start(wanted);
        return hears(1) ? listings.front().names : QStringList();
    }

    int count = 1;
    char program[6] = "watch";
    char* words[2] = {program, nullptr};
    QCoreApplication application{count, words};
    QTemporaryDir folder;
    std::unique_ptr<FolderWatch> watch;
    std::vector<Listing> listings;
};

} // namespace

TEST_F(FolderWatchTest, folder_isListedByName)
{
    make(QString::fromUtf8("ü b.mkv"));
    make("b.MP4");
    make("a.webm");
    EXPECT_EQ(namesIn({}), (QStringList{"a.webm", "b.MP4", QString::fromUtf8("ü b.mkv")}));
    EXPECT_TRUE(listings.front().isWhole);
}

TEST_F(FolderWatchTest, folder_isListedByTime_newestFirst)
{
    make("a.mov", 2);
    make("b.mov", 3);
    make("c.mov", 1);
    EXPECT_EQ(namesIn({.path = folder.path(), .isNewestFirst = true}),
              (QStringList{"b.mov", "a.mov", "c.mov"}));
}

TEST_F(FolderWatchTest, folder_holdsWhatLiesBelow_whereThatIsAskedFor)
{
    make("a.mov");
    make("in/deep/b.mov");
    ASSERT_TRUE(QDir(folder.path()).mkdir("called.mov"));
    EXPECT_EQ(namesIn({}), QStringList("a.mov"));
    EXPECT_EQ(namesIn({.path = folder.path(), .isRecursive = true}), (QStringList{"a.mov", "in/deep/b.mov"}));
}

TEST_F(FolderWatchTest, folder_holdsNoLinksToFolders)
{
    make("in/a.mov");
    ASSERT_TRUE(QFile::link(folder.filePath("in"), folder.filePath("link")));
    ASSERT_TRUE(QFile::link(folder.path(), folder.filePath("in/circle")));
    EXPECT_EQ(namesIn({.path = folder.path(), .isRecursive = true}), QStringList("in/a.mov"));
}

TEST_F(FolderWatchTest, whatIsHiddenOrNoMovie_isPassedOver)
{
    for (const char* name : {".a.mov", ".in/b.mov", "c.jpg", "d", "mov", "e.mov.txt"})
        make(name);
    make("f.mov");
    EXPECT_EQ(namesIn({.path = folder.path(), .isRecursive = true}), QStringList("f.mov"));
}

TEST_F(FolderWatchTest, whatIsBeingDownloaded_isPassedOver)
{
    for (const char* name : {"a.mov.part", "b.mov.crdownload", "in/c.mov", "in/c.mov.part", "c.mov"})
        make(name);
    EXPECT_EQ(namesIn({.path = folder.path(), .isRecursive = true}), QStringList("c.mov"));
}

TEST_F(FolderWatchTest, change_isTold)
{
    make("a.mov");
    make("in/b.mov");
    start({.path = folder.path(), .isRecursive = true});
    ASSERT_TRUE(hears(1));
    make("in/c.mov");
    ASSERT_TRUE(hears(2));
    EXPECT_EQ(listings[1].names, (QStringList{"a.mov", "in/b.mov", "in/c.mov"}));
    make("in/new/d.mov");
    ASSERT_TRUE(QFile::remove(folder.filePath("a.mov")));
    ASSERT_TRUE(hears(3));
    EXPECT_EQ(listings[2].names, (QStringList{"in/b.mov", "in/c.mov", "in/new/d.mov"}));
}

TEST_F(FolderWatchTest, download_isTold_onceItIsThere)
{
    make("a.mov.part");
    start();
    ASSERT_TRUE(hears(1));
    EXPECT_TRUE(listings[0].names.isEmpty());
    ASSERT_TRUE(QFile::rename(folder.filePath("a.mov.part"), folder.filePath("a.mov")));
    ASSERT_TRUE(hears(2));
    EXPECT_EQ(listings[1].names, QStringList("a.mov"));
}

TEST_F(FolderWatchTest, folderThatIsNotThere_isEmpty_andToldOnceItIs)
{
    start({.path = folder.filePath("later")});
    ASSERT_TRUE(hears(1));
    EXPECT_TRUE(listings[0].names.isEmpty());
    EXPECT_TRUE(listings[0].isWhole);
    make("later/a.mov");
    ASSERT_TRUE(hears(2));
    EXPECT_EQ(listings[1].names, QStringList("later/a.mov"));
}

TEST_F(FolderWatchTest, largeFolder_isToldInPart_andWholeSoonAfter)
{
    for (int number = 0; number < 300; ++number)
        make(QStringLiteral("%1.mov").arg(number, 3, 10, QLatin1Char('0')));
    start();
    ASSERT_TRUE(hears(2));
    EXPECT_FALSE(listings[0].isWhole);
    EXPECT_EQ(listings[0].names.size(), 256);
    EXPECT_TRUE(listings[1].isWhole);
    EXPECT_EQ(listings[1].names.size(), 300);
}

TEST_F(FolderWatchTest, largeFolder_isToldAtOnce_inAHurry)
{
    for (int number = 0; number < 300; ++number)
        make(QStringLiteral("%1.mov").arg(number));
    EXPECT_EQ(namesIn({.path = folder.path(), .isHurried = true}).size(), 300);
    EXPECT_TRUE(listings.front().isWhole);
}

// Killed or not: the pipe's end is what it hears.
TEST_F(FolderWatchTest, process_ends_onceNobodyReads)
{
    int ends[2];
    ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
    Descriptor reading(ends[0]);
    Descriptor writing(ends[1]);
    auto process = ChildProcess::start({.file = packageLibraries() + QStringLiteral("/kestro-file-look"),
                                        .arguments = {QStringLiteral("--movies"), folder.path()},
                                        .descriptors = {{writing.number(), STDOUT_FILENO}}});
    ASSERT_TRUE(process);
    writing.reset();
    char end[4] = {};
    ASSERT_EQ(read(reading.number(), end, sizeof end), 3);
    EXPECT_STREQ(end, "..");
    EXPECT_FALSE(process.value()->waitForEnd(std::chrono::milliseconds(0)).has_value());
    reading.reset();
    EXPECT_TRUE(process.value()->waitForEnd(std::chrono::minutes(3)).has_value());
}

} // namespace kestro
