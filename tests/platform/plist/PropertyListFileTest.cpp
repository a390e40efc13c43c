#include "platform/plist/PropertyListFile.h"

#include "platform/plist/PropertyListTestFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <atomic>
#include <csignal>
#include <ctime>
#include <fcntl.h>
#include <functional>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace kestro {

namespace {

class PropertyListFile : public testing::Test {
protected:
    [[nodiscard]] QString in(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }

    // Whether `operation` answers true in a process of its own, so that limits and users end with it.
    static bool answersTrueInChild(const std::function<bool()>& operation)
    {
        const pid_t child = fork();
        if (child == 0) _exit(operation() ? 0 : 1);
        int status = -1;
        return child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status) &&
               WEXITSTATUS(status) == 0;
    }

    static void becomeNobody()
    {
        if (geteuid() == 0 && setuid(65534) != 0) _exit(0);
    }

    [[nodiscard]] QStringList files() const
    {
        return QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden | QDir::System);
    }

    // Two hours.
    static void makeOld(const QString& path)
    {
        const timespec then{.tv_sec = std::time(nullptr) - 7200, .tv_nsec = 0};
        const timespec times[2] = {then, then};
        ASSERT_EQ(utimensat(AT_FDCWD, QFile::encodeName(path).constData(), times, 0), 0);
    }

    QTemporaryDir m_folder;
};

} // namespace

TEST_F(PropertyListFile, read_answersTheBytes)
{
    putFile(in("a"), QByteArray("x\0y", 3));
    EXPECT_EQ(readPropertyListFile(in("a")), QByteArray("x\0y", 3));
    putFile(in("empty"), "");
    EXPECT_EQ(readPropertyListFile(in("empty")), QByteArray());
}

TEST_F(PropertyListFile, read_answersNothing_whenItIsNoRegularFile)
{
    ASSERT_EQ(mkfifo(QFile::encodeName(in("pipe")).constData(), 0600), 0);
    EXPECT_FALSE(readPropertyListFile(in("pipe")).has_value());
    EXPECT_FALSE(readPropertyListFile(in("missing")).has_value());
    EXPECT_FALSE(readPropertyListFile(m_folder.path()).has_value());
    EXPECT_FALSE(readPropertyListFile(QStringLiteral("/dev/zero")).has_value());
    EXPECT_FALSE(readPropertyListFile(QString()).has_value());
}

TEST_F(PropertyListFile, read_answersNothing_whenItMayNotBeRead)
{
    putFile(in("secret"), "x");
    ASSERT_EQ(chmod(QFile::encodeName(m_folder.path()).constData(), 0755), 0);
    ASSERT_EQ(chmod(QFile::encodeName(in("secret")).constData(), 0), 0);
    EXPECT_FALSE(answersTrueInChild([this] {
        becomeNobody();
        return readPropertyListFile(in("secret")).has_value();
    }));
}

TEST_F(PropertyListFile, read_takesFiles_upTo64MiB)
{
    constexpr off_t largest = 64L * 1024 * 1024;
    putFile(in("large"), "");
    ASSERT_EQ(truncate(QFile::encodeName(in("large")).constData(), largest), 0);
    const auto found = readPropertyListFile(in("large"));
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(found->size(), largest);
    ASSERT_EQ(truncate(QFile::encodeName(in("large")).constData(), largest + 1), 0);
    EXPECT_FALSE(readPropertyListFile(in("large")).has_value());
}

TEST_F(PropertyListFile, replace_makesTheFileAndItsFolders)
{
    EXPECT_TRUE(replacePropertyListFile(in("a/b/c.plist"), "new"));
    EXPECT_EQ(bytesOf(in("a/b/c.plist")), "new");
}

TEST_F(PropertyListFile, replace_keepsTheMode_ofTheFileBefore)
{
    putFile(in("a"), "old");
    ASSERT_EQ(chmod(QFile::encodeName(in("a")).constData(), 0640), 0);
    EXPECT_TRUE(replacePropertyListFile(in("a"), "new"));
    struct stat found = {};
    ASSERT_EQ(stat(QFile::encodeName(in("a")).constData(), &found), 0);
    EXPECT_EQ(found.st_mode & ALLPERMS, 0640U);
    EXPECT_EQ(bytesOf(in("a")), "new");
}

TEST_F(PropertyListFile, replace_leavesNothingBeside)
{
    putFile(in("a"), "old");
    EXPECT_TRUE(replacePropertyListFile(in("a"), "new"));
    EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("a")});
}

TEST_F(PropertyListFile, replace_removesWhatKilledWritersLeft)
{
    putFile(in("a.plist"), "old");
    putFile(in("a.plist.kestro-new-000001"), "half");
    putFile(in("a.plist.aBcDeF"), "<?xml version=\"1.0\"?><plist>half, of an earlier release");
    makeOld(in("a.plist.aBcDeF"));
    EXPECT_TRUE(replacePropertyListFile(in("a.plist"), "new"));
    EXPECT_EQ(files(), QStringList{QStringLiteral("a.plist")});
}

TEST_F(PropertyListFile, replace_removesNothingElse)
{
    const QStringList others{QStringLiteral("a.plist.BackUp"),
                             QStringLiteral("a.plist.backup"),
                             QStringLiteral("a.plist.MyCopy"),
                             QStringLiteral("a.plist.AbCdEfG"),
                             QStringLiteral("a.plist.ABCDEF"),
                             QStringLiteral("a.plist.aB1DeF"),
                             QStringLiteral("a.plist.kestro-new-1"),
                             QStringLiteral("b.plist.kestro-new-000001"),
                             QStringLiteral("b.plist.aBcDeF"),
                             QStringLiteral("a.plist~"),
                             QStringLiteral("aBcDeF")};
    for (const QString& other : others) {
        putFile(m_folder.filePath(other), "precious");
        makeOld(m_folder.filePath(other));
    }
    putFile(in("a.plist.aBcDeF"), "of an earlier release that writes now");
    putFile(in("target"), "linked");
    ASSERT_EQ(symlink("target", QFile::encodeName(in("a.plist.kestro-new-000002")).constData()), 0);
    putFile(in("a.plist.OneOld"), "<?xml version=\"1.0\"?><plist></plist>\n");
    makeOld(in("a.plist.OneOld"));
    EXPECT_TRUE(replacePropertyListFile(in("a.plist"), "new"));
    EXPECT_EQ(files().size(), others.size() + 5);
}

TEST_F(PropertyListFile, replace_leavesWhatIsBegun_whileAnotherWriterIsThere)
{
    putFile(in("a.plist.kestro-new-000001"), "another's");
    const int folder =
        open(QFile::encodeName(m_folder.path()).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    ASSERT_EQ(flock(folder, LOCK_SH), 0);
    EXPECT_TRUE(replacePropertyListFile(in("a.plist"), "new"));
    EXPECT_EQ(files().size(), 2);
    close(folder);
    EXPECT_TRUE(replacePropertyListFile(in("a.plist"), "newer"));
    EXPECT_EQ(files(), QStringList{QStringLiteral("a.plist")});
}

TEST_F(PropertyListFile, replace_leavesAWholeFile_whenManyWriteAtOnce)
{
    const auto contents = [](int writer) { return QByteArray(100'000, static_cast<char>('a' + writer)); };
    std::atomic<int> failures = 0;
    std::vector<std::thread> writers;
    for (int writer = 0; writer < 4; ++writer)
        writers.emplace_back([&, writer] {
            for (int times = 0; times < 20; ++times)
                if (!replacePropertyListFile(in("a.plist"), contents(writer))) ++failures;
        });
    for (std::thread& writer : writers)
        writer.join();
    EXPECT_EQ(failures, 0);
    const QByteArray last = bytesOf(in("a.plist"));
    ASSERT_FALSE(last.isEmpty());
    EXPECT_EQ(last, contents(last.front() - 'a'));
    EXPECT_EQ(files(), QStringList{QStringLiteral("a.plist")});
}

TEST_F(PropertyListFile, replace_makesAFileOfTheUsersMask_whenThereWasNone)
{
    EXPECT_TRUE(replacePropertyListFile(in("a"), "new"));
    const mode_t mask = umask(0);
    umask(mask);
    struct stat found = {};
    ASSERT_EQ(stat(QFile::encodeName(in("a")).constData(), &found), 0);
    EXPECT_EQ(found.st_mode & ALLPERMS, 0666U & ~mask);
}

TEST_F(PropertyListFile, setAside_givesAnUnusedNameBesideIt)
{
    putFile(in("a.b.plist"), "first");
    EXPECT_EQ(setAsidePropertyListFile(in("a.b.plist")), in("a.b~.plist"));
    putFile(in("a.b.plist"), "second");
    EXPECT_EQ(setAsidePropertyListFile(in("a.b.plist")), in("a.b~1.plist"));
    EXPECT_EQ(bytesOf(in("a.b~.plist")), "first");
    EXPECT_EQ(bytesOf(in("a.b~1.plist")), "second");
    EXPECT_FALSE(isPropertyListFileThere(in("a.b.plist")));
    EXPECT_EQ(setAsidePropertyListFile(in("a.b.plist")), std::nullopt);
}

TEST_F(PropertyListFile, setAside_leavesALink_andMovesItsTarget)
{
    putFile(in("real.plist"), "broken");
    ASSERT_EQ(symlink("real.plist", QFile::encodeName(in("link.plist")).constData()), 0);
    EXPECT_TRUE(isPropertyListFileThere(in("link.plist")));
    EXPECT_EQ(setAsidePropertyListFile(in("link.plist")), in("real~.plist"));
    EXPECT_TRUE(QFileInfo(in("link.plist")).isSymLink());
    EXPECT_FALSE(isPropertyListFileThere(in("link.plist")));
}

TEST_F(PropertyListFile, replace_writesTheTarget_whenThereIsALink)
{
    ASSERT_TRUE(QDir().mkpath(in("dotfiles")));
    putFile(in("dotfiles/real"), "old");
    ASSERT_EQ(symlink("dotfiles/real", QFile::encodeName(in("relative")).constData()), 0);
    ASSERT_TRUE(QFile::link(in("relative"), in("second")));
    EXPECT_TRUE(replacePropertyListFile(in("second"), "new"));
    EXPECT_TRUE(QFileInfo(in("second")).isSymLink());
    EXPECT_TRUE(QFileInfo(in("relative")).isSymLink());
    EXPECT_FALSE(QFileInfo(in("dotfiles/real")).isSymLink());
    EXPECT_EQ(bytesOf(in("dotfiles/real")), "new");
}

TEST_F(PropertyListFile, replace_makesTheTarget_whenALinkPointsAtNothing)
{
    ASSERT_TRUE(QFile::link(in("elsewhere/real"), in("link")));
    EXPECT_TRUE(replacePropertyListFile(in("link"), "new"));
    EXPECT_TRUE(QFileInfo(in("link")).isSymLink());
    EXPECT_EQ(bytesOf(in("elsewhere/real")), "new");
}

TEST_F(PropertyListFile, replace_answersFalse_whenLinksGoInACircle)
{
    ASSERT_TRUE(QFile::link(in("b"), in("a")));
    ASSERT_TRUE(QFile::link(in("a"), in("b")));
    EXPECT_FALSE(replacePropertyListFile(in("a"), "new"));
    EXPECT_TRUE(QFileInfo(in("a")).isSymLink());
}

TEST_F(PropertyListFile, replace_answersFalse_whenItIsNoRegularFile)
{
    ASSERT_EQ(mkfifo(QFile::encodeName(in("pipe")).constData(), 0600), 0);
    EXPECT_FALSE(replacePropertyListFile(in("pipe"), "new"));
    ASSERT_TRUE(QDir().mkpath(in("folder")));
    EXPECT_FALSE(replacePropertyListFile(in("folder"), "new"));
    EXPECT_TRUE(QFileInfo(in("folder")).isDir());
    EXPECT_FALSE(replacePropertyListFile(QString(), "new"));
}

TEST_F(PropertyListFile, replace_answersFalse_whenItsFolderCannotBeMade)
{
    putFile(in("file"), "old");
    EXPECT_FALSE(replacePropertyListFile(in("file/below"), "new"));
    EXPECT_EQ(bytesOf(in("file")), "old");
}

TEST_F(PropertyListFile, replace_answersFalse_whenItsFolderIsReadOnly)
{
    ASSERT_TRUE(QDir().mkpath(in("locked")));
    putFile(in("locked/file"), "old");
    ASSERT_EQ(chmod(QFile::encodeName(m_folder.path()).constData(), 0755), 0);
    ASSERT_EQ(chmod(QFile::encodeName(in("locked/file")).constData(), 0666), 0);
    ASSERT_EQ(chmod(QFile::encodeName(in("locked")).constData(), 0555), 0);
    EXPECT_FALSE(answersTrueInChild([this] {
        becomeNobody();
        return replacePropertyListFile(in("locked/file"), "new");
    }));
    EXPECT_EQ(bytesOf(in("locked/file")), "old");
    ASSERT_EQ(chmod(QFile::encodeName(in("locked")).constData(), 0755), 0);
}

// Short contents are written at the very end only, from a buffer.
TEST_F(PropertyListFile, replace_leavesTheOldFileWhole_whenTheDiskIsFull)
{
    const auto writeWithRoomFor = [this](rlim_t room, qsizetype size) {
        return answersTrueInChild([this, room, size] {
            std::signal(SIGXFSZ, SIG_IGN);
            const rlimit limit = {room, room};
            setrlimit(RLIMIT_FSIZE, &limit);
            return replacePropertyListFile(in("file"), QByteArray(size, 'n'));
        });
    };
    for (const rlim_t size : {1'000U, 100'000U}) {
        putFile(in("file"), "old");
        for (const rlim_t room : {rlim_t(0), rlim_t(1), size / 2, size - 1}) {
            EXPECT_FALSE(writeWithRoomFor(room, qsizetype(size))) << room;
            EXPECT_EQ(bytesOf(in("file")), "old") << room;
        }
        EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden),
                  QStringList{QStringLiteral("file")});
        EXPECT_TRUE(writeWithRoomFor(size, qsizetype(size)));
        EXPECT_EQ(bytesOf(in("file")), QByteArray(qsizetype(size), 'n'));
    }
}

} // namespace kestro
