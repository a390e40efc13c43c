#include "trailers/CrawlLock.h"

#include <QFile>
#include <QTemporaryDir>

#include <csignal>
#include <gtest/gtest.h>
#include <optional>
#include <sys/wait.h>
#include <unistd.h>

namespace kestro {

class CrawlLockTest : public testing::Test {
protected:
    QTemporaryDir m_home;
    QString m_list = m_home.filePath(QStringLiteral("Library/Preferences/List.lst"));
};

TEST_F(CrawlLockTest, take_isRefused_whileSomebodyHasIt)
{
    {
        const auto first = CrawlLock::take(m_list);
        ASSERT_TRUE(first.isOk()) << qPrintable(first.error());
        const auto second = CrawlLock::take(m_list);
        ASSERT_FALSE(second.isOk());
        EXPECT_EQ(second.error(), QStringLiteral("Another crawl is running"));
    }
    EXPECT_TRUE(CrawlLock::take(m_list).isOk());
    EXPECT_TRUE(QFile::exists(m_home.filePath(QStringLiteral("Library/Preferences/List.lock"))));
}

TEST_F(CrawlLockTest, take_succeeds_whenTheProcessThatHadItWasKilled)
{
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0) {
        const auto held = CrawlLock::take(m_list);
        const char token = held.isOk() ? 'y' : 'n';
        if (write(ends[1], &token, 1) == 1) pause();
        _exit(0);
    }
    char token = 0;
    ASSERT_EQ(read(ends[0], &token, 1), 1);
    EXPECT_EQ(token, 'y');
    EXPECT_FALSE(CrawlLock::take(m_list).isOk());
    kill(child, SIGKILL);
    ASSERT_EQ(waitpid(child, nullptr, 0), child);
    EXPECT_TRUE(CrawlLock::take(m_list).isOk());
    close(ends[0]);
    close(ends[1]);
}

TEST_F(CrawlLockTest, take_saysWhy_whenTheFileCannotBeMade)
{
    QFile blocked(m_home.filePath(QStringLiteral("Library")));
    ASSERT_TRUE(blocked.open(QIODevice::WriteOnly));
    const auto lock = CrawlLock::take(m_list);
    ASSERT_FALSE(lock.isOk());
    EXPECT_TRUE(lock.error().startsWith(QStringLiteral("Cannot lock "))) << qPrintable(lock.error());
}

} // namespace kestro
