#include "platform/base/PrivateFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kestro {

namespace {

class PrivateFolder : public testing::Test {
protected:
    [[nodiscard]] QString in(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }

    static mode_t modeOf(const QString& path)
    {
        struct stat found = {};
        return stat(QFile::encodeName(path).constData(), &found) == 0 ? found.st_mode & ALLPERMS : 0;
    }

    static void setMode(const QString& path, mode_t mode)
    {
        ASSERT_EQ(chmod(QFile::encodeName(path).constData(), mode), 0);
    }

    QTemporaryDir m_folder;
};

} // namespace

TEST_F(PrivateFolder, makePrivateFolder_makesOne_thatOnlyTheOwnerMayEnter)
{
    const mode_t before = umask(0);
    EXPECT_TRUE(makePrivateFolder(in("own")));
    umask(before);
    EXPECT_EQ(modeOf(in("own")), 0700U);
}

TEST_F(PrivateFolder, makePrivateFolder_narrowsItsMode_whenItIsThereAlready)
{
    ASSERT_TRUE(QDir().mkpath(in("wide")));
    setMode(in("wide"), 0777);
    EXPECT_TRUE(makePrivateFolder(in("wide")));
    EXPECT_EQ(modeOf(in("wide")), 0700U);
}

TEST_F(PrivateFolder, makePrivateFolder_refuses_aLinkEvenToAFolderOfOurs)
{
    ASSERT_TRUE(QDir().mkpath(in("target")));
    ASSERT_TRUE(QFile::link(in("target"), in("link")));
    EXPECT_FALSE(makePrivateFolder(in("link")));
}

TEST_F(PrivateFolder, makePrivateFolder_refuses_aFile)
{
    QFile file(in("file"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_FALSE(makePrivateFolder(in("file")));
}

TEST_F(PrivateFolder, makePrivateFolder_refuses_whenTheParentIsMissing)
{
    EXPECT_FALSE(makePrivateFolder(in("missing/own")));
}

TEST_F(PrivateFolder, makePrivateFolder_refuses_aFolderOfSomebodyElse)
{
    if (geteuid() != 0) {
        EXPECT_FALSE(makePrivateFolder(QStringLiteral("/usr")));
        return;
    }
    ASSERT_TRUE(QDir().mkpath(in("theirs")));
    ASSERT_EQ(chown(QFile::encodeName(in("theirs")).constData(), 12345, 12345), 0);
    EXPECT_FALSE(makePrivateFolder(in("theirs")));
    EXPECT_FALSE(isOwnFolder(in("theirs")));
}

TEST_F(PrivateFolder, isOwnFolder_isFalse_whenOthersMayWrite)
{
    ASSERT_TRUE(QDir().mkpath(in("own")));
    for (const auto& [mode, expected] :
         {std::pair<mode_t, bool>{0700, true}, {0755, true}, {0770, false}, {0702, false}}) {
        setMode(in("own"), mode);
        EXPECT_EQ(isOwnFolder(in("own")), expected) << std::oct << mode;
    }
    EXPECT_FALSE(isOwnFolder(in("missing")));
}

TEST_F(PrivateFolder, newPrivateFolder_isAnotherOneEachTime)
{
    const QString first = newPrivateFolder(m_folder.path(), QStringLiteral("kestro-"));
    const QString second = newPrivateFolder(m_folder.path(), QStringLiteral("kestro-"));
    EXPECT_TRUE(first.startsWith(in("kestro-")));
    EXPECT_NE(first, second);
    EXPECT_EQ(modeOf(first), 0700U);
    EXPECT_EQ(modeOf(second), 0700U);
}

TEST_F(PrivateFolder, newPrivateFolder_isEmpty_whenTheParentIsMissing)
{
    EXPECT_TRUE(newPrivateFolder(in("missing"), QStringLiteral("kestro-")).isEmpty());
}

} // namespace kestro
