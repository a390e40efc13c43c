#include "platform/web/ProfileFolder.h"

#include "platform/base/ProcessMark.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace kestro {

namespace {

class ProfileFolderTest : public testing::Test {
protected:
    QStringList left() const
    {
        return QDir(parent.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }

    /// A folder as another process, that is over, would have left it.
    QString leftBehind(const char* letters)
    {
        const QString path = parent.filePath(QStringLiteral("web-999999999-1-") + QLatin1String(letters));
        EXPECT_EQ(mkdir(path.toLocal8Bit().constData(), S_IRWXU), 0);
        return path;
    }

    QTemporaryDir parent;
};

TEST_F(ProfileFolderTest, make_makesAPrivateFolder_thatGoesWithIt)
{
    auto folder = ProfileFolder::make(parent.path());
    ASSERT_TRUE(folder);
    EXPECT_EQ(QFile::permissions(folder->path()) & (QFile::ReadGroup | QFile::ReadOther),
              QFile::Permissions());
    ASSERT_TRUE(QDir(folder->path()).mkpath(QStringLiteral("a/b")));
    folder.reset();
    EXPECT_EQ(left(), QStringList());
}

TEST_F(ProfileFolderTest, make_deletesWhatWasLeftBehind_butNothingInUse)
{
    const QString stale = leftBehind("aaaaaa");
    const QString claimed = leftBehind("bbbbbb");
    ASSERT_TRUE(QFile(stale + QStringLiteral("/file")).open(QIODevice::WriteOnly));
    ASSERT_TRUE(QDir(parent.path()).mkdir(QStringLiteral("web-of-somebody")));
    const Descriptor used = ProfileFolder::claim(claimed, false);
    ASSERT_TRUE(used.isOpen());
    const auto one = ProfileFolder::make(parent.path());
    const auto another = ProfileFolder::make(parent.path());
    ASSERT_TRUE(one && another);
    EXPECT_FALSE(QFile::exists(stale));
    EXPECT_TRUE(QFile::exists(claimed));
    EXPECT_TRUE(left().contains(QStringLiteral("web-of-somebody")));
    EXPECT_TRUE(QFile::exists(one->path()));
}

// Between the making and the claiming of a folder there is a moment.
TEST_F(ProfileFolderTest, make_leavesAFolderThatNobodyClaimsYet_toTheProcessThatMadeIt)
{
    const QString mark = markOfThisProcess().replace(u' ', u'-');
    const QString path = parent.filePath(QStringLiteral("web-%1-cccccc").arg(mark));
    ASSERT_EQ(mkdir(path.toLocal8Bit().constData(), S_IRWXU), 0);
    ASSERT_TRUE(ProfileFolder::make(parent.path()));
    EXPECT_TRUE(QFile::exists(path));
}

TEST_F(ProfileFolderTest, isOne_wantsNameOwnerModeAndPlace)
{
    const QString path = leftBehind("aaaaaa");
    const QByteArray bytes = path.toLocal8Bit();
    EXPECT_TRUE(ProfileFolder::isOne(path));
    EXPECT_FALSE(ProfileFolder::isOne(parent.path()));
    EXPECT_FALSE(ProfileFolder::isOne(path + u'/'));
    EXPECT_FALSE(ProfileFolder::isOne(QString()));
    EXPECT_FALSE(ProfileFolder::isOne(QDir::homePath()));
    ASSERT_EQ(chmod(bytes.constData(), 0755), 0);
    EXPECT_FALSE(ProfileFolder::isOne(path));
    ASSERT_EQ(chmod(bytes.constData(), S_IRWXU), 0);
    ASSERT_EQ(chmod(parent.path().toLocal8Bit().constData(), 0755), 0);
    EXPECT_FALSE(ProfileFolder::isOne(path));
}

TEST_F(ProfileFolderTest, isOne_isFalseForALink)
{
    const QString folder = leftBehind("aaaaaa");
    const QString link = parent.filePath(QStringLiteral("web-1-1-dddddd"));
    ASSERT_TRUE(QFile::link(folder, link));
    EXPECT_FALSE(ProfileFolder::isOne(link));
}

TEST_F(ProfileFolderTest, remove_leavesWhatIsNotOne)
{
    const QString other = parent.filePath(QStringLiteral("home"));
    ASSERT_TRUE(QDir(parent.path()).mkdir(QStringLiteral("home")));
    EXPECT_TRUE(ProfileFolder::remove(other));
    EXPECT_TRUE(QFile::exists(other));
}

TEST_F(ProfileFolderTest, make_answersNull_whereThereIsNoParent)
{
    EXPECT_FALSE(ProfileFolder::make({}));
    EXPECT_FALSE(ProfileFolder::make(parent.filePath(QStringLiteral("nowhere"))));
}

} // namespace

} // namespace kestro
