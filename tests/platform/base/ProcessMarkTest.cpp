#include "platform/base/ProcessMark.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kestro {

TEST(ProcessMark, process_runs_whileItDoes)
{
    EXPECT_EQ(markOfThisProcess(), processMark(getpid()));
    EXPECT_TRUE(isRunning(markOfThisProcess()));
    EXPECT_NE(markOfThisProcess(), processMark(getppid()));
}

TEST(ProcessMark, process_runsNoMore_onceItIsOver)
{
    int ends[2] = {};
    ASSERT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0) {
        char byte = 0;
        close(ends[1]);
        _exit(static_cast<int>(read(ends[0], &byte, 1))); // until the parent closes its end
    }
    const QString mark = processMark(child);
    EXPECT_TRUE(isRunning(mark));
    close(ends[0]);
    close(ends[1]);
    waitpid(child, nullptr, 0);
    EXPECT_FALSE(isRunning(mark));
}

TEST(ProcessMark, process_runsNot_whereALaterOneHasItsNumber)
{
    EXPECT_FALSE(isRunning(QStringLiteral("%1 0").arg(getpid())));
    EXPECT_FALSE(isRunning(QString()));
    EXPECT_FALSE(isRunning(QStringLiteral("nonsense")));
}

} // namespace kestro
