#include "platform/base/FileLook.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kestro {

TEST(FileLook, isFileThere_tellsWhatIsThereFromWhatIsNot)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QString::fromUtf8("ein Film ü.mov")));
    EXPECT_FALSE(isFileThere(file.fileName()));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_TRUE(isFileThere(file.fileName()));
    EXPECT_TRUE(isFileThere(folder.path()));
    EXPECT_FALSE(isFileThere(QString()));
}

TEST(FileLook, isFileThere_doesNotWaitForAWriter_whereItIsAPipe)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("pipe"));
    ASSERT_EQ(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    EXPECT_TRUE(isFileThere(path));
}

TEST(FileLook, isFileThere_answersWithinABoundAsWithoutOne)
{
    const QTemporaryDir folder;
    EXPECT_TRUE(isFileThere(folder.path(), std::chrono::minutes(3)));
    EXPECT_FALSE(isFileThere(folder.filePath(QStringLiteral("missing")), std::chrono::minutes(3)));
}

TEST(FileLook, isFileThere_saysNothing_whenItIsToldToStop)
{
    const QTemporaryDir folder;
    std::stop_source stop;
    constexpr std::chrono::minutes bound(3);
    EXPECT_EQ(isFileThere(folder.path(), bound, stop.get_token()), true);
    EXPECT_EQ(isFileThere(folder.filePath(QStringLiteral("missing")), bound, stop.get_token()), false);
    stop.request_stop();
    EXPECT_EQ(isFileThere(folder.path(), bound, stop.get_token()), std::nullopt);
}

TEST(FileLook, isFileThere_leavesNoProcess)
{
    const auto children = [] {
        QFile tasks(QStringLiteral("/proc/self/task/%1/children").arg(getpid()));
        EXPECT_TRUE(tasks.open(QIODevice::ReadOnly));
        return tasks.readAll();
    };
    const QByteArray before = children();
    EXPECT_TRUE(isFileThere(QStringLiteral("/")));
    EXPECT_EQ(children(), before);
}

} // namespace kestro
