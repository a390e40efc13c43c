#include "publish/FilePlacing.h"

#include "platform/movie/StreamableMovie.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

namespace kestro {
namespace {

/// Lets no file grow beyond so many bytes: to a program it is what a full disk is.
class SmallDisk final {
public:
    explicit SmallDisk(rlim_t bytes)
        : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit small{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~SmallDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

private:
    rlimit m_before{};
    void (*m_handler)(int);
};

class FilePlacing : public testing::Test {
protected:
    void SetUp() override { put(m_source, "movie"); }

    static void put(const QString& path, const QByteArray& content)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    static QByteArray content(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
    }

    [[nodiscard]] QStringList names() const
    {
        return QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
    }

    QTemporaryDir m_folder;
    QString m_source = m_folder.filePath(QStringLiteral("source.mov"));
    QString m_place = m_folder.filePath(QStringLiteral("place.mov"));
};

TEST_F(FilePlacing, placeContent_writesAFile_andLeavesNothingElse)
{
    const auto placed = placeContent(m_place, "page");
    ASSERT_TRUE(placed.isOk());
    EXPECT_EQ(placed.value(), Placed::Written);
    EXPECT_EQ(content(m_place), "page");
    EXPECT_EQ(names(), (QStringList{QStringLiteral("place.mov"), QStringLiteral("source.mov")}));
}

TEST_F(FilePlacing, placeContent_leavesAFileAlone_whenItHoldsThatAlready)
{
    put(m_place, "page");
    QFile file(m_place);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const QDateTime longAgo = QDateTime::fromSecsSinceEpoch(1'000'000'000);
    ASSERT_TRUE(file.setFileTime(longAgo, QFileDevice::FileModificationTime));
    file.close();
    const auto placed = placeContent(m_place, "page");
    ASSERT_TRUE(placed.isOk());
    EXPECT_EQ(placed.value(), Placed::Unchanged);
    EXPECT_EQ(QFileInfo(m_place).lastModified(), longAgo);
}

TEST_F(FilePlacing, placeContent_keepsTheOldFileWhole_whenTheDiskIsFull)
{
    put(m_place, "old");
    const SmallDisk disk(1000);
    const auto placed = placeContent(m_place, QByteArray(5000, 'x'));
    ASSERT_FALSE(placed.isOk());
    EXPECT_TRUE(placed.error().contains(m_place)) << placed.error().toStdString();
    EXPECT_EQ(content(m_place), "old");
    EXPECT_EQ(names().size(), 2);
}

TEST_F(FilePlacing, placeContent_isAnError_whenTheFolderIsMissing)
{
    EXPECT_FALSE(placeContent(m_folder.filePath(QStringLiteral("missing/page")), "page").isOk());
}

TEST_F(FilePlacing, placeMovie_takesNoRoom_whenLinked)
{
    const auto placed = placeMovie(m_place, m_source, MovieTransfer::Link);
    ASSERT_TRUE(placed.isOk());
    EXPECT_EQ(placed.value(), Placed::Written);
    EXPECT_TRUE(std::filesystem::equivalent(nativePath(m_place), nativePath(m_source)));
    EXPECT_EQ(placeMovie(m_place, m_source, MovieTransfer::Link).value(), Placed::Unchanged);
    EXPECT_EQ(names().size(), 2);
}

TEST_F(FilePlacing, placeMovie_isAFileOfItsOwn_whenCopied)
{
    ASSERT_TRUE(placeMovie(m_place, m_source, MovieTransfer::Link).isOk());
    const auto placed = placeMovie(m_place, m_source, MovieTransfer::Copy);
    ASSERT_TRUE(placed.isOk());
    EXPECT_EQ(placed.value(), Placed::Written);
    EXPECT_FALSE(std::filesystem::equivalent(nativePath(m_place), nativePath(m_source)));
    EXPECT_EQ(content(m_place), "movie");
    EXPECT_EQ(placeMovie(m_place, m_source, MovieTransfer::Copy).value(), Placed::Unchanged);
    EXPECT_EQ(names().size(), 2);
}

TEST_F(FilePlacing, placeMovie_putsTheIndexFirst_whereItIsLast)
{
    const QString source = QStringLiteral(KESTRO_TEST_MOVIES "/plain.mp4");
    ASSERT_FALSE(isStreamable(source));
    for (const MovieTransfer transfer : {MovieTransfer::Link, MovieTransfer::Copy}) {
        QFile::remove(m_place);
        EXPECT_EQ(placeMovie(m_place, source, transfer).value(), Placed::Written);
        EXPECT_TRUE(isStreamable(m_place));
        EXPECT_EQ(placeMovie(m_place, source, transfer).value(), Placed::Unchanged);
        EXPECT_EQ(names().size(), 2);
    }
}

TEST_F(FilePlacing, placeMovie_followsTheSource_whenAnotherFileTookItsPlace)
{
    for (const MovieTransfer transfer : {MovieTransfer::Link, MovieTransfer::Copy}) {
        ASSERT_TRUE(placeMovie(m_place, m_source, transfer).isOk());
        QFile::remove(m_source);
        put(m_source, "another movie, longer by " + QByteArray(int(transfer) + 1, '.'));
        EXPECT_EQ(placeMovie(m_place, m_source, transfer).value(), Placed::Written);
        EXPECT_EQ(content(m_place), content(m_source));
    }
}

TEST_F(FilePlacing, placeMovie_leavesNothing_whenTheDiskIsFull)
{
    put(m_source, QByteArray(5000, 'x'));
    const SmallDisk disk(1000);
    const auto placed = placeMovie(m_place, m_source, MovieTransfer::Copy);
    ASSERT_FALSE(placed.isOk());
    EXPECT_EQ(names(), QStringList{QStringLiteral("source.mov")});
}

TEST_F(FilePlacing, placeSecondName_isTheSameFile_alsoWhereACopyWas)
{
    const QString first = m_folder.filePath(QStringLiteral("first.mov"));
    ASSERT_TRUE(placeMovie(m_place, m_source, MovieTransfer::Link).isOk());
    ASSERT_TRUE(placeMovie(first, m_source, MovieTransfer::Copy).isOk());
    EXPECT_EQ(placeSecondName(m_place, first).value(), Placed::Written);
    EXPECT_TRUE(std::filesystem::equivalent(nativePath(m_place), nativePath(first)));
    EXPECT_FALSE(std::filesystem::equivalent(nativePath(m_place), nativePath(m_source)));
    EXPECT_EQ(placeSecondName(m_place, first).value(), Placed::Unchanged);
    EXPECT_EQ(names().size(), 3);
}

TEST_F(FilePlacing, removeUnfinished_takesAwayWhatAnInterruptedRunLeft)
{
    put(m_folder.filePath(QStringLiteral(".place.mov.part")), "mov");
    removeUnfinished(m_place);
    EXPECT_EQ(names(), QStringList{QStringLiteral("source.mov")});
}

} // namespace
} // namespace kestro
