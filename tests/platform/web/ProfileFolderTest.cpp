#include "platform/web/ProfileFolder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro {

namespace {

class ProfileFolderTest : public testing::Test {
protected:
    QStringList left() const
    {
        return QDir(parent.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
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
    ASSERT_TRUE(QDir(parent.path()).mkdir(QStringLiteral("web-stale")));
    ASSERT_TRUE(QDir(parent.path()).mkdir(QStringLiteral("web-used")));
    ASSERT_TRUE(QDir(parent.path()).mkdir(QStringLiteral("other")));
    const Descriptor used = ProfileFolder::claim(parent.filePath(QStringLiteral("web-used")), false);
    ASSERT_TRUE(used.isOpen());
    const auto one = ProfileFolder::make(parent.path());
    const auto another = ProfileFolder::make(parent.path());
    ASSERT_TRUE(one && another);
    EXPECT_FALSE(left().contains(QStringLiteral("web-stale")));
    EXPECT_TRUE(left().contains(QStringLiteral("web-used")));
    EXPECT_TRUE(left().contains(QStringLiteral("other")));
    EXPECT_TRUE(QFile::exists(one->path()));
}

TEST_F(ProfileFolderTest, make_answersNull_whereThereIsNoParent)
{
    EXPECT_FALSE(ProfileFolder::make({}));
    EXPECT_FALSE(ProfileFolder::make(parent.filePath(QStringLiteral("nowhere"))));
}

} // namespace

} // namespace kestro
