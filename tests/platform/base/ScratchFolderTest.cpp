#include "platform/base/ScratchFolder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <csignal>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kestro {

namespace {

class ScratchFolderTest : public testing::Test {
protected:
    [[nodiscard]] QStringList there() const
    {
        return QDir(m_parent).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    static void write(const QString& path)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    /// Ends a process that has a folder here the hard way.
    void killOneWithAFolder() const
    {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            const auto folder = ScratchFolder::make(m_parent);
            if (folder) write(folder->path() + QStringLiteral("/x"));
            raise(SIGKILL);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status));
    }

    QTemporaryDir m_folder;
    const QString m_parent = m_folder.filePath(QStringLiteral("not/yet"));
};

} // namespace

TEST_F(ScratchFolderTest, folder_isThisUsersAlone_andGoesWithItsFiles)
{
    {
        const auto folder = ScratchFolder::make(m_parent);
        ASSERT_TRUE(folder);
        struct stat found = {};
        ASSERT_EQ(stat(QFile::encodeName(folder->path()).constData(), &found), 0);
        EXPECT_EQ(found.st_mode & ALLPERMS, mode_t(S_IRWXU));
        write(folder->path() + QStringLiteral("/x"));
    }
    EXPECT_EQ(there(), QStringList());
}

TEST_F(ScratchFolderTest, folders_stayApart_whileTheyAreUsed)
{
    const auto one = ScratchFolder::make(m_parent);
    const auto other = ScratchFolder::make(m_parent);
    ScratchFolder::sweep(m_parent);
    EXPECT_NE(one->path(), other->path());
    EXPECT_EQ(there().size(), 2);
}

TEST_F(ScratchFolderTest, folderOfAKilledProcess_goes_whenThereIsASweepOrANewOne)
{
    killOneWithAFolder();
    ASSERT_EQ(there().size(), 1);
    ScratchFolder::sweep(m_parent);
    EXPECT_EQ(there(), QStringList());
    killOneWithAFolder();
    const auto mine = ScratchFolder::make(m_parent);
    EXPECT_EQ(there().size(), 1);
}

TEST_F(ScratchFolderTest, sweep_takesNothingElse)
{
    const QTemporaryDir elsewhere;
    write(elsewhere.filePath(QStringLiteral("mine")));
    ASSERT_TRUE(QDir().mkpath(m_parent + QStringLiteral("/kestro-other")));
    ASSERT_TRUE(
        QDir().mkpath(m_parent + QStringLiteral("/kestro-scratch-open"))); // of mode 0755: none of ours
    ASSERT_TRUE(
        QFile::setPermissions(m_parent + QStringLiteral("/kestro-scratch-open"),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ExeOther));
    write(m_parent + QStringLiteral("/kestro-scratch-file"));
    ASSERT_TRUE(QFile::link(elsewhere.path(), m_parent + QStringLiteral("/kestro-scratch-link")));
    ScratchFolder::sweep(m_parent);
    EXPECT_EQ(there().size(), 4);
    EXPECT_TRUE(QFile::exists(elsewhere.filePath(QStringLiteral("mine"))));
}

TEST_F(ScratchFolderTest, make_answersNull_whereNoneCanBe)
{
    for (const QString& parent : {QString(), QStringLiteral("relative"), QStringLiteral("/proc/none")})
        EXPECT_FALSE(ScratchFolder::make(parent)) << parent.toStdString();
    EXPECT_FALSE(QDir().exists(QStringLiteral("relative")));
}

} // namespace kestro
