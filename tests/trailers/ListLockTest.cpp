#include "trailers/ListLock.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <csignal>
#include <gtest/gtest.h>
#include <optional>
#include <sys/wait.h>
#include <unistd.h>

namespace kestro {

class ListLockTest : public testing::Test {
protected:
    QTemporaryDir m_home;
    QString m_list = m_home.filePath(QStringLiteral("Library/Preferences/List.lst"));
};

TEST_F(ListLockTest, take_isRefused_whileSomebodyHasIt)
{
    {
        const auto first = ListLock::takeToCrawl(m_list);
        ASSERT_TRUE(first.isOk()) << qPrintable(first.failure().message);
        const auto second = ListLock::takeToCrawl(m_list);
        ASSERT_FALSE(second.isOk());
        EXPECT_EQ(second.failure().kind, LockFault::Kind::Taken);
        EXPECT_EQ(second.failure().message, QStringLiteral("Another crawl is running"));
    }
    EXPECT_TRUE(ListLock::takeToCrawl(m_list).isOk());
    EXPECT_TRUE(QFile::exists(m_home.filePath(QStringLiteral("Library/Preferences/List.lock"))));
}

TEST_F(ListLockTest, take_succeeds_whenTheProcessThatHadItWasKilled)
{
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0) {
        const auto held = ListLock::takeToCrawl(m_list);
        const char token = held.isOk() ? 'y' : 'n';
        if (write(ends[1], &token, 1) == 1) pause();
        _exit(0);
    }
    char token = 0;
    ASSERT_EQ(read(ends[0], &token, 1), 1);
    EXPECT_EQ(token, 'y');
    EXPECT_FALSE(ListLock::takeToCrawl(m_list).isOk());
    kill(child, SIGKILL);
    ASSERT_EQ(waitpid(child, nullptr, 0), child);
    EXPECT_TRUE(ListLock::takeToCrawl(m_list).isOk());
    close(ends[0]);
    close(ends[1]);
}

TEST_F(ListLockTest, take_saysWhatCannotBeMade_andWhy)
{
    const QString folder = m_home.filePath(QStringLiteral("Library/Preferences"));
    ASSERT_TRUE(QDir().mkpath(folder + QStringLiteral("/List.lock")));
    const auto lock = ListLock::takeToCrawl(m_list);
    ASSERT_FALSE(lock.isOk());
    EXPECT_EQ(lock.failure().kind, LockFault::Kind::CannotBeMade);
    EXPECT_EQ(lock.failure().message,
              QStringLiteral("Cannot make the lock %1/List.lock: Is a directory").arg(folder));

    ASSERT_TRUE(QDir(m_home.filePath(QStringLiteral("Library"))).removeRecursively());
    QFile blocked(m_home.filePath(QStringLiteral("Library")));
    ASSERT_TRUE(blocked.open(QIODevice::WriteOnly));
    const auto other = ListLock::takeToCrawl(m_list);
    ASSERT_FALSE(other.isOk());
    EXPECT_EQ(other.failure().kind, LockFault::Kind::CannotBeMade);
    EXPECT_EQ(other.failure().message,
              QStringLiteral("Cannot make the folder %1: Not a directory").arg(folder));
}

TEST_F(ListLockTest, takeToSave_waitsForWhoSaves_butNotForWhoCrawls)
{
    const auto crawling = ListLock::takeToCrawl(m_list);
    ASSERT_TRUE(crawling.isOk());
    int pauses = 0;
    std::optional saving = ListLock::takeToSave(m_list, [&] { ++pauses; });
    ASSERT_TRUE(saving->isOk());
    EXPECT_EQ(pauses, 0);
    const auto next = ListLock::takeToSave(m_list, [&] {
        if (++pauses == 3) saving.reset();
    });
    EXPECT_TRUE(next.isOk());
    EXPECT_EQ(pauses, 3);
}

TEST_F(ListLockTest, takeToSave_givesUp_whenItIsNeverLetGo)
{
    const auto first = ListLock::takeToSave(m_list);
    ASSERT_TRUE(first.isOk());
    int pauses = 0;
    const auto second = ListLock::takeToSave(m_list, [&] { ++pauses; });
    ASSERT_FALSE(second.isOk());
    EXPECT_EQ(second.failure().kind, LockFault::Kind::Taken);
    EXPECT_EQ(pauses, 200);
}

} // namespace kestro
