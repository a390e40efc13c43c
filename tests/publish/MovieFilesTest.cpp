#include "publish/MovieFiles.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro {
namespace {

class MovieFiles : public testing::Test {
protected:
    void put(const QString& path)
    {
        const QString whole = at(path);
        QDir().mkpath(QFileInfo(whole).path());
        QFile file(whole);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }

    [[nodiscard]] QString at(const QString& path) const { return m_folder.filePath(path); }

    [[nodiscard]] QStringList found(const QString& excluded = QStringLiteral("/nowhere")) const
    {
        const auto result = movieFilesBelow(m_folder.path(), excluded);
        EXPECT_TRUE(result.isOk());
        return result ? result.value() : QStringList();
    }

    QTemporaryDir m_folder;
};

TEST_F(MovieFiles, areFoundInAllFolders_byTheirExtension)
{
    for (const char* path :
         {"b.mov", "a.MP4", "x/y/c.webm", "notes.txt", "x/picture.jpg", ".hidden.mov", ".trash/d.mov"})
        put(QString::fromUtf8(path));
    EXPECT_EQ(found(),
              (QStringList{QStringLiteral("a.MP4"), QStringLiteral("b.mov"), QStringLiteral("x/y/c.webm")}));
}

TEST_F(MovieFiles, areNotLookedForInTheExcludedFolder)
{
    put(QStringLiteral("a.mov"));
    put(QStringLiteral("site/trailers/a/a.mov"));
    EXPECT_EQ(found(at(QStringLiteral("site"))), QStringList{QStringLiteral("a.mov")});
}

TEST_F(MovieFiles, areFoundOnce_whenALinkLeadsBackUp)
{
    put(QStringLiteral("x/a.mov"));
    ASSERT_TRUE(QFile::link(m_folder.path(), at(QStringLiteral("x/up"))));
    ASSERT_TRUE(QFile::link(at(QStringLiteral("x/self")), at(QStringLiteral("x/self"))));
    EXPECT_EQ(found(), QStringList{QStringLiteral("x/a.mov")});
}

TEST_F(MovieFiles, areFoundBehindLinks)
{
    const QTemporaryDir elsewhere;
    QFile file(elsewhere.filePath(QStringLiteral("far.mov")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_TRUE(QFile::link(elsewhere.path(), at(QStringLiteral("linked"))));
    EXPECT_EQ(found(), QStringList{QStringLiteral("linked/far.mov")});
}

TEST_F(MovieFiles, areAnError_whenThereIsNoSuchFolder)
{
    put(QStringLiteral("a.mov"));
    EXPECT_FALSE(movieFilesBelow(at(QStringLiteral("missing")), {}).isOk());
    EXPECT_FALSE(movieFilesBelow(at(QStringLiteral("a.mov")), {}).isOk());
}

} // namespace
} // namespace kestro
