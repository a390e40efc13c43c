#include "publish/SiteFolder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro {
namespace {

const QString page = QStringLiteral("waves/index.html");
const QString other = QStringLiteral("reef/index.html");

class SiteFolderOnDisk : public testing::Test {
protected:
    /// One run that writes these files, each holding its own name.
    Result<void> run(const QStringList& files)
    {
        SiteFolder folder(m_site);
        if (auto done = folder.open(); !done) return done;
        if (auto done = folder.claim(files); !done) return done;
        for (const QString& file : files)
            if (auto done = folder.write(file, file.toUtf8()); !done) return done;
        auto done = folder.finish({});
        m_written = folder.writtenCount();
        m_removed = folder.removedCount();
        return done;
    }

    void put(const QString& file)
    {
        QDir().mkpath(QFileInfo(path(file)).path());
        QFile foreign(path(file));
        ASSERT_TRUE(foreign.open(QIODevice::WriteOnly));
        foreign.write("foreign");
    }

    [[nodiscard]] QString path(const QString& file) const { return m_site + u'/' + file; }
    [[nodiscard]] bool isThere(const QString& file) const { return QFileInfo::exists(path(file)); }
    [[nodiscard]] QByteArray content(const QString& file) const
    {
        QFile there(path(file));
        return there.open(QIODevice::ReadOnly) ? there.readAll() : QByteArray();
    }

    QTemporaryDir m_holder;
    QString m_site = m_holder.filePath(QStringLiteral("site"));
    int m_written = 0;
    int m_removed = 0;
};

TEST_F(SiteFolderOnDisk, removesWhatWentAway_withItsFolder)
{
    ASSERT_TRUE(run({page, other}));
    ASSERT_TRUE(run({page}));
    EXPECT_EQ(m_removed, 1);
    EXPECT_EQ(m_written, 0);
    EXPECT_TRUE(isThere(page));
    EXPECT_FALSE(isThere(QStringLiteral("reef")));
}

TEST_F(SiteFolderOnDisk, leavesForeignFilesAlone_alsoInAFolderThatWentAway)
{
    ASSERT_TRUE(run({page, other}));
    put(QStringLiteral("reef/notes.txt"));
    put(QStringLiteral("mine.html"));
    ASSERT_TRUE(run({page}));
    EXPECT_EQ(content(QStringLiteral("reef/notes.txt")), "foreign");
    EXPECT_EQ(content(QStringLiteral("mine.html")), "foreign");
    EXPECT_FALSE(isThere(other));
}

TEST_F(SiteFolderOnDisk, changesNothing_whenAForeignFileIsInTheWay)
{
    put(page);
    const auto done = run({other, page});
    ASSERT_FALSE(done.isOk());
    EXPECT_TRUE(done.error().contains(path(page))) << done.error().toStdString();
    EXPECT_EQ(content(page), "foreign");
    EXPECT_FALSE(isThere(other));
}

TEST_F(SiteFolderOnDisk, changesNothing_whenAForeignFileOrLinkIsWhereAFolderMustBe)
{
    QDir().mkpath(m_site);
    QDir().mkpath(m_holder.filePath(QStringLiteral("elsewhere")));
    put(QStringLiteral("waves"));
    EXPECT_FALSE(run({page}));
    QFile::remove(path(QStringLiteral("waves")));
    ASSERT_TRUE(QFile::link(m_holder.filePath(QStringLiteral("elsewhere")), path(QStringLiteral("waves"))));
    EXPECT_FALSE(run({page}));
    EXPECT_TRUE(QDir(m_holder.filePath(QStringLiteral("elsewhere"))).isEmpty());
}

TEST_F(SiteFolderOnDisk, knowsItsFilesAgain_whenTheRunBeforeWasInterrupted)
{
    {
        SiteFolder interrupted(m_site);
        ASSERT_TRUE(interrupted.open());
        ASSERT_TRUE(interrupted.claim({page}));
        ASSERT_TRUE(interrupted.write(page, "half of the site"));
    }
    ASSERT_TRUE(run({page}));
    EXPECT_EQ(content(page), page.toUtf8());
}

TEST_F(SiteFolderOnDisk, takesAwayHalfFiles_whenTheRunBeforeWasInterrupted)
{
    ASSERT_TRUE(run({page}));
    put(QStringLiteral("waves/.index.html.part"));
    ASSERT_TRUE(run({page}));
    EXPECT_FALSE(isThere(QStringLiteral("waves/.index.html.part")));
}

TEST_F(SiteFolderOnDisk, keepsAFile_onlyWhileItsOriginIsTheSame)
{
    SiteFolder first(m_site);
    ASSERT_TRUE(first.open());
    ASSERT_TRUE(first.claim({page}));
    ASSERT_TRUE(first.write(page, "picture", QStringLiteral("state 1")));
    ASSERT_TRUE(first.finish({}));

    SiteFolder second(m_site);
    ASSERT_TRUE(second.open());
    EXPECT_FALSE(second.keep(page, QStringLiteral("state 2")));
    EXPECT_TRUE(second.keep(page, QStringLiteral("state 1")));
    QFile::remove(path(page));
    EXPECT_FALSE(second.keep(page, QStringLiteral("state 1")));
}

TEST_F(SiteFolderOnDisk, isAnError_whenTheManifestIsDamaged)
{
    ASSERT_TRUE(run({page}));
    put(QStringLiteral(".kestro-site.json"));
    EXPECT_FALSE(run({page}));
}

TEST_F(SiteFolderOnDisk, keepsItsManifestToItsOwner)
{
    ASSERT_TRUE(run({page}));
    const auto others = QFileDevice::ReadGroup | QFileDevice::ReadOther;
    EXPECT_FALSE(QFile::permissions(path(QStringLiteral(".kestro-site.json"))) & others);
}

} // namespace
} // namespace kestro
