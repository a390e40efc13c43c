#include "engine/ShuffleRecord.h"

#include "platform/base/Log.h"

#include <QFile>
#include <QTemporaryDir>
#include <QUrl>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

namespace kestro {

namespace {

using Mark = ShuffleRecord::Mark;

class ShuffleRecordTest : public testing::Test {
protected:
    static void see(ShuffleRecord& record, Mark mark)
    {
        record.change(
            [mark](ShuffleRecord::Contents& contents) { return contents.seen.insert(mark).second; });
    }
    void put(const QByteArray& text) const
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    /// A run in which this movie cannot be played.
    void failOnce(Mark mark)
    {
        ShuffleRecord record(path);
        record.addFailure(mark);
        record.keepFailures();
    }

    QTemporaryDir folder;
    QString path = folder.filePath("in/shuffle");
    QStringList log;
    LogCapture capture{[this](const QString& line) { log.append(line); }};
};

} // namespace

TEST_F(ShuffleRecordTest, change_isKnownToTheNextRun)
{
    ShuffleRecord first(path);
    see(first, 7);
    see(first, 0xfedcba9876543210U);
    const ShuffleRecord second(path);
    EXPECT_EQ(second.contents().seen, (std::unordered_set<Mark>{7, 0xfedcba9876543210U}));
    EXPECT_EQ(second.contents(), first.contents());
    EXPECT_TRUE(log.isEmpty());
}

TEST_F(ShuffleRecordTest, change_beginsWithWhatOthersHaveWritten)
{
    ShuffleRecord one(path);
    ShuffleRecord other(path);
    see(one, 1);
    EXPECT_TRUE(other.contents().seen.empty());
    see(other, 2);
    EXPECT_EQ(other.contents().seen, (std::unordered_set<Mark>{1, 2}));
}

TEST_F(ShuffleRecordTest, change_answersWhatItWasAnswered)
{
    ShuffleRecord record(path);
    EXPECT_FALSE(record.change([](auto&) { return false; }));
    EXPECT_TRUE(record.change([](auto&) { return true; }));
}

TEST_F(ShuffleRecordTest, damagedFile_isANewShuffle_withALine)
{
    for (const char* text : {"", "kestro-shuffle 1", "kestro-shuffle 2\n", "kestro-shuffle 1\nseen 1",
                             "kestro-shuffle 1\nseen x\n", "kestro-shuffle 1\nseen 1\nseen 1\n",
                             "kestro-shuffle 1\nseen 1\n\n", "kestro-shuffle 1\nfailed 1\n",
                             "kestro-shuffle 1\nfailed 1 0\n", "kestro-shuffle 1\nheard 1\n", "\xff\xfe"}) {
        log.clear();
        static_cast<void>(ShuffleRecord(path));
        put(text);
        ShuffleRecord record(path);
        EXPECT_EQ(record.contents(), ShuffleRecord::Contents()) << text;
        EXPECT_EQ(log, QStringList(path + QStringLiteral(" is damaged: a new shuffle begins."))) << text;
        see(record, 3);
        EXPECT_EQ(ShuffleRecord(path).contents().seen, std::unordered_set<Mark>{3}) << text;
    }
}

TEST_F(ShuffleRecordTest, movie_isHopeless_onceItFailedInThreeRunsInARow)
{
    failOnce(1);
    failOnce(1);
    EXPECT_FALSE(ShuffleRecord(path).isHopeless(1));
    failOnce(1);
    EXPECT_TRUE(ShuffleRecord(path).isHopeless(1));
    EXPECT_FALSE(ShuffleRecord(path).isHopeless(2));
}

TEST_F(ShuffleRecordTest, failuresOfOneRun_countOnce)
{
    ShuffleRecord record(path);
    for (int i = 0; i < 5; ++i) {
        record.addFailure(1);
        record.keepFailures();
    }
    EXPECT_EQ(record.contents().failures.at(1), 1);
}

TEST_F(ShuffleRecordTest, markOf_isTheSameForEver)
{
    EXPECT_EQ(ShuffleRecord::markOf(QUrl(QStringLiteral("file:///a.mov"))), 0x67a975aca4303cd9U);
    EXPECT_NE(ShuffleRecord::markOf(QUrl(QStringLiteral("file:///a.mov"))),
              ShuffleRecord::markOf(QUrl(QStringLiteral("file:///b.mov"))));
}

TEST_F(ShuffleRecordTest, marksOf_areThoseOfTheList_alsoOfAnotherOne)
{
    ShuffleRecord record(path);
    const QList<QUrl> one{QUrl(QStringLiteral("file:///a.mov")), QUrl(QStringLiteral("file:///b.mov"))};
    const QList<QUrl> other{one[1]};
    const Mark a = ShuffleRecord::markOf(one[0]);
    const Mark b = ShuffleRecord::markOf(one[1]);
    EXPECT_EQ(*record.marksOf(one), (std::vector<Mark>{a, b}));
    EXPECT_EQ(record.marksOf(one), record.marksOf(one));
    EXPECT_EQ(*record.marksOf(other), std::vector<Mark>{b});
}

TEST_F(ShuffleRecordTest, record_goesOnInMemory_withOneLine_whereOthersKeepTheLock)
{
    ShuffleRecord record(path);
    const int lock = open(QFile::encodeName(path + ".lock").constData(), O_RDWR | O_CREAT, 0600);
    ASSERT_EQ(flock(lock, LOCK_EX), 0);
    see(record, 1);
    see(record, 2);
    close(lock);
    EXPECT_EQ(record.contents().seen, (std::unordered_set<Mark>{1, 2}));
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_EQ(log,
              QStringList(QStringLiteral("Cannot lock %1: what was played is not remembered.").arg(path)));
}

TEST_F(ShuffleRecordTest, file_holdsNoAddresses)
{
    ShuffleRecord record(path);
    see(record, ShuffleRecord::markOf(QUrl(QStringLiteral("file:///home/ada/secret.mov"))));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    EXPECT_TRUE(text.startsWith("kestro-shuffle 1\nseen "));
    EXPECT_FALSE(text.contains("secret"));
}

} // namespace kestro
