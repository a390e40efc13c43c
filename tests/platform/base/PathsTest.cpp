#include "platform/base/Paths.h"

#include "platform/base/ScopedEnvironment.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cstdlib>
#include <gtest/gtest.h>
#include <pwd.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kestro {

namespace {

mode_t modeOf(const QString& path)
{
    struct stat found = {};
    return stat(QFile::encodeName(path).constData(), &found) == 0 ? found.st_mode & ALLPERMS : 0;
}

} // namespace

TEST(Paths, homeFolder_isTheUsersHome_whenNothingElseIsSet)
{
    const ScopedEnvironment none("KESTRO_HOME");
    const ScopedEnvironment home("HOME", QStringLiteral("/home/somebody"));
    EXPECT_EQ(homeFolder(), QStringLiteral("/home/somebody"));
}

TEST(Paths, homeFolder_isKestroHome_whenSet)
{
    const ScopedEnvironment home("HOME", QStringLiteral("/home/somebody"));
    const ScopedEnvironment own("KESTRO_HOME", QStringLiteral("/tmp/elsewhere/"));
    EXPECT_EQ(homeFolder(), QStringLiteral("/tmp/elsewhere"));
}

TEST(Paths, homeFolder_isTheUsersHome_whenKestroHomeIsEmpty)
{
    const ScopedEnvironment home("HOME", QStringLiteral("/home/somebody"));
    const ScopedEnvironment own("KESTRO_HOME", QString());
    EXPECT_EQ(homeFolder(), QStringLiteral("/home/somebody"));
}

TEST(Paths, homeFolder_isTheAccounts_whenHomeIsNotSet)
{
    const ScopedEnvironment none("KESTRO_HOME");
    const ScopedEnvironment home("HOME");
    const passwd* account = getpwuid(getuid());
    const char* expected = account == nullptr ? "/" : account->pw_dir;
    EXPECT_EQ(homeFolder(), QString::fromLocal8Bit(expected));
}

TEST(Paths, kestroProgram_isInThePackage)
{
    EXPECT_EQ(kestroProgram(), packagePrefix() + QStringLiteral("/bin/kestro"));
}

TEST(Paths, packagePrefix_isTwoAboveTheLibrarysFolder)
{
    EXPECT_TRUE(QFileInfo::exists(packagePrefix() + QStringLiteral("/lib/kestro/libkestro-base.so")))
        << packagePrefix().toStdString();
    EXPECT_TRUE(QDir::isAbsolutePath(packagePrefix()));
}

TEST(Paths, platformPath_isThePathItself_whenSomethingIsThere)
{
    const ScopedEnvironment none("KESTRO_ROOT");
    const QTemporaryDir folder;
    EXPECT_EQ(platformPath(folder.path()), folder.path());
}

TEST(Paths, platformPath_isBelowThePackagesRoot_whenNothingIsThere)
{
    const ScopedEnvironment none("KESTRO_ROOT");
    EXPECT_EQ(platformPath(QStringLiteral("/no such/intro.mov")),
              packagePrefix() + QStringLiteral("/share/kestro/root/no such/intro.mov"));
}

TEST(Paths, platformPath_isAlwaysBelowKestroRoot_whenSet)
{
    const QTemporaryDir there;
    const ScopedEnvironment root("KESTRO_ROOT", QStringLiteral("/tmp/root/"));
    EXPECT_EQ(platformPath(there.path()), QStringLiteral("/tmp/root") + there.path());
    EXPECT_EQ(platformPath(QStringLiteral("/no such")), QStringLiteral("/tmp/root/no such"));
}

TEST(Paths, temporaryFolder_isInTheSessionsFolder_whenThereIsOne)
{
    const QTemporaryDir session;
    const ScopedEnvironment runtime("XDG_RUNTIME_DIR", session.path());
    EXPECT_EQ(temporaryFolder(), session.path() + QStringLiteral("/kestro"));
    EXPECT_EQ(modeOf(temporaryFolder()), 0700U);
}

TEST(Paths, temporaryFolder_isMadeAgain_whenItWasRemoved)
{
    const QTemporaryDir session;
    const ScopedEnvironment runtime("XDG_RUNTIME_DIR", session.path());
    ASSERT_TRUE(QDir(temporaryFolder()).removeRecursively());
    EXPECT_TRUE(QFileInfo(temporaryFolder()).isDir());
}

TEST(Paths, temporaryFolder_isAFreshOne_whenThereIsNoSession)
{
    const ScopedEnvironment runtime("XDG_RUNTIME_DIR");
    const QString folder = temporaryFolder();
    EXPECT_TRUE(folder.startsWith(QDir::tempPath() + QStringLiteral("/kestro-%1-").arg(getuid())))
        << folder.toStdString();
    EXPECT_EQ(modeOf(folder), 0700U);
    EXPECT_EQ(temporaryFolder(), folder);
}

TEST(Paths, temporaryFolder_isGone_onceTheProcessThatMadeItEnded)
{
    const ScopedEnvironment runtime("XDG_RUNTIME_DIR");
    const QTemporaryDir parent;
    const ScopedEnvironment temporary("TMPDIR", parent.path());
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        const QString folder = temporaryFolder();
        QFile(folder + QStringLiteral("/left over")).open(QIODevice::WriteOnly);
        std::exit(folder.startsWith(parent.path()) ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(QDir(parent.path()).isEmpty());
}

TEST(Paths, temporaryFolder_isElsewhere_whenTheSessionsHoldsALinkOfThatName)
{
    const QTemporaryDir session;
    const QTemporaryDir target;
    const ScopedEnvironment runtime("XDG_RUNTIME_DIR", session.path());
    ASSERT_TRUE(QFile::link(target.path(), session.path() + QStringLiteral("/kestro")));
    EXPECT_FALSE(temporaryFolder().startsWith(session.path()));
    EXPECT_FALSE(temporaryFolder().isEmpty());
}

TEST(Paths, temporaryFolder_isElsewhere_whenOthersMayWriteInTheSessionsFolder)
{
    const QTemporaryDir session;
    const ScopedEnvironment runtime("XDG_RUNTIME_DIR", session.path());
    ASSERT_EQ(chmod(QFile::encodeName(session.path()).constData(), 0777), 0);
    EXPECT_FALSE(temporaryFolder().startsWith(session.path()));
}

} // namespace kestro
