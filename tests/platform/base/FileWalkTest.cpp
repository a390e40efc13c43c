#include "platform/base/FileWalk.h"

#include "support/WaitUntil.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <gtest/gtest.h>
#include <optional>

namespace kestro {

namespace {

class FileWalkTest : public testing::Test {
protected:
    ~FileWalkTest() override { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    QString make(const QString& name) const
    {
        QDir(folder.path()).mkpath(QFileInfo(name).path());
        EXPECT_TRUE(QFile(folder.filePath(name)).open(QIODevice::WriteOnly));
        return folder.filePath(name);
    }
    void start(const QStringList& paths, std::chrono::milliseconds longest = std::chrono::minutes(3))
    {
        walk = FileWalk::start(paths, longest, [this](const FileWalk::Found& answer) {
            found = answer;
            walk.reset();
        });
        ASSERT_NE(walk, nullptr);
    }
    QList<QStringList> filesOf(const QStringList& paths)
    {
        start(paths);
        EXPECT_TRUE(waitUntil([this] { return found.has_value(); }));
        if (!found) return {};
        EXPECT_TRUE(found->isWhole);
        for (QStringList& files : found->files)
            files.sort();
        return found->files;
    }

    int count = 1;
    char program[5] = "walk";
    char* words[2] = {program, nullptr};
    QCoreApplication application{count, words};
    QTemporaryDir folder;
    std::unique_ptr<FileWalk> walk;
    std::optional<FileWalk::Found> found;
};

} // namespace

TEST_F(FileWalkTest, walk_findsTheFilesOfEachPath)
{
    const QString file = make(QString::fromUtf8("ein Film ü.mov"));
    const QString second = make("in/b.mkv");
    const QString first = make("in/a/z.MP4");
    EXPECT_EQ(filesOf({folder.filePath("in"), folder.filePath("missing"), file}),
              (QList<QStringList>{{first, second}, {}, {file}}));
}

TEST_F(FileWalkTest, walk_leavesOutWhatIsHiddenAndWhatLiesBehindALinkToAFolder)
{
    const QString seen = make("in/a.mov");
    make("in/.hidden.mov");
    make("in/.hidden/b.mov");
    make("elsewhere/c.mov");
    ASSERT_TRUE(QFile::link(folder.filePath("elsewhere"), folder.filePath("in/link")));
    ASSERT_TRUE(QFile::link(folder.filePath("elsewhere/c.mov"), folder.filePath("in/linked.mov")));
    EXPECT_EQ(filesOf({folder.filePath("in")}),
              (QList<QStringList>{{seen, folder.filePath("in/linked.mov")}}));
}

TEST_F(FileWalkTest, walk_followsAPathThatIsALink)
{
    make("elsewhere/c.mov");
    ASSERT_TRUE(QFile::link(folder.filePath("elsewhere"), folder.filePath("link")));
    EXPECT_EQ(filesOf({folder.filePath("link")}), (QList<QStringList>{{folder.filePath("link/c.mov")}}));
}

TEST_F(FileWalkTest, walk_answersWithWhatItHas_whenItTakesTooLong)
{
    start({QStringLiteral("/usr")}, std::chrono::milliseconds(0));
    ASSERT_TRUE(waitUntil([this] { return found.has_value(); }));
    EXPECT_FALSE(found->isWhole);
    EXPECT_EQ(found->files.size(), 1);
    for (const QString& file : found->files[0])
        EXPECT_TRUE(QFileInfo::exists(file)) << qPrintable(file);
}

TEST_F(FileWalkTest, walk_saysNothing_onceItWasGivenUp)
{
    start({folder.path()});
    walk.reset();
    start({folder.path()});
    ASSERT_TRUE(waitUntil([this] { return found.has_value(); }));
    found.reset();
    QCoreApplication::processEvents();
    EXPECT_FALSE(found.has_value());
}

} // namespace kestro
