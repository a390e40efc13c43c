#include "platform/base/FileReplacement.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kestro {

namespace {

class FileReplacement : public testing::Test {
protected:
    [[nodiscard]] QString in(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }
    [[nodiscard]] static QByteArray bytesOf(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
    }
    [[nodiscard]] QStringList files() const
    {
        return QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden | QDir::System);
    }

    QTemporaryDir m_folder;
};

} // namespace

TEST_F(FileReplacement, replace_writesTheWholeFileAndNothingElse)
{
    EXPECT_TRUE(replaceFile(in("a.mov"), "old and long").isOk());
    EXPECT_TRUE(replaceFile(in("a.mov"), "new").isOk());
    EXPECT_EQ(bytesOf(in("a.mov")), "new");
    EXPECT_EQ(files(), QStringList(QStringLiteral("a.mov")));
}

TEST_F(FileReplacement, replace_answersWhyAndLeavesNothing_whenThereIsNoFolder)
{
    const auto failure = replaceFile(in("none/a.mov"), "new");
    ASSERT_FALSE(failure.isOk());
    EXPECT_EQ(failure.error(), QStringLiteral("No such file or directory"));
    EXPECT_FALSE(QFile::exists(in("none")));
}

TEST_F(FileReplacement, replace_answersWhyAndKeepsTheFile_whenTheDiskIsFull)
{
    ASSERT_TRUE(replaceFile(in("a"), "old").isOk());
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit small{100, 100};
        setrlimit(RLIMIT_FSIZE, &small);
        const auto failure = replaceFile(in("a"), QByteArray(1000, 'x'));
        _exit(!failure && failure.error() == QString::fromLocal8Bit(strerror(EFBIG)) ? 0 : 1);
    }
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(bytesOf(in("a")), "old");
    EXPECT_EQ(files(), QStringList(QStringLiteral("a")));
}

TEST_F(FileReplacement, replace_leavesALink_andReplacesWhatItPointsAt)
{
    ASSERT_TRUE(replaceFile(in("a"), "old").isOk());
    ASSERT_EQ(symlink("a", QFile::encodeName(in("link")).constData()), 0);
    EXPECT_TRUE(replaceFile(in("link"), "new").isOk());
    EXPECT_EQ(QFile::symLinkTarget(in("link")), in("a"));
    EXPECT_EQ(bytesOf(in("a")), "new");
}

TEST_F(FileReplacement, replace_isAnError_whereAFolderOrAPipeIs)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(QStringLiteral("folder")));
    ASSERT_EQ(mkfifo(QFile::encodeName(in("pipe")).constData(), 0600), 0);
    EXPECT_FALSE(replaceFile(in("folder"), "new").isOk());
    EXPECT_FALSE(replaceFile(in("pipe"), "new").isOk());
    EXPECT_EQ(files(), QStringList(QStringLiteral("pipe")));
}

TEST_F(FileReplacement, replaceWritable_leavesAFile_thatMayNotBeWritten)
{
    ASSERT_TRUE(replaceFile(in("a"), "old").isOk());
    ASSERT_EQ(chmod(QFile::encodeName(in("a")).constData(), 0444), 0);
    ASSERT_EQ(chmod(QFile::encodeName(m_folder.path()).constData(), 0777), 0);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        if (geteuid() == 0 && setuid(65534) != 0) _exit(2);
        _exit(!replaceWritableFile(in("a"), "new") && replaceWritableFile(in("b"), "new") ? 0 : 1);
    }
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(bytesOf(in("a")), "old");
    EXPECT_EQ(bytesOf(in("b")), "new");
}

TEST_F(FileReplacement, make_makesAFile_onlyWhereThereIsNone)
{
    EXPECT_TRUE(makeFile(in("a"), "one").isOk());
    EXPECT_FALSE(makeFile(in("a"), "another").isOk());
    EXPECT_EQ(bytesOf(in("a")), "one");
}

} // namespace kestro
