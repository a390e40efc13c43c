#include "platform/base/Paths.h"

#include "platform/base/ScopedEnvironment.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <pwd.h>
#include <sys/stat.h>
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
    EXPECT_EQ(kestroProgram(), QDir::cleanPath(packageLibraries() + QStringLiteral("/../../bin/kestro")));
}

TEST(Paths, packageLibraries_isTheFolderOfThisLibrary)
{
    EXPECT_TRUE(QFileInfo::exists(packageLibraries() + QStringLiteral("/libkestro-base.so")))
        << packageLibraries().toStdString();
    EXPECT_TRUE(QDir::isAbsolutePath(packageLibraries()));
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
              packageData() + QStringLiteral("/root/no such/intro.mov"));
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

TEST(Paths, temporaryFolder_isAmongTheUsersCaches_whenThereIsNoSession)
{
    const QTemporaryDir home;
    const ScopedEnvironment runtime("XDG_RUNTIME_DIR");
    const ScopedEnvironment caches("XDG_CACHE_HOME", QStringLiteral("/elsewhere"));
    const ScopedEnvironment own("KESTRO_HOME", home.path());
    const QString folder = temporaryFolder();
    EXPECT_EQ(folder, home.path() + QStringLiteral("/.cache/kestro"));
    EXPECT_EQ(modeOf(folder), 0700U);
    EXPECT_EQ(temporaryFolder(), folder);
}

TEST(Paths, temporaryFolder_isWhereTheUserKeepsCaches_whenThatIsNamed)
{
    const QTemporaryDir home;
    const ScopedEnvironment runtime("XDG_RUNTIME_DIR");
    const ScopedEnvironment elsewhere("KESTRO_HOME");
    const ScopedEnvironment caches("XDG_CACHE_HOME", home.path() + QStringLiteral("/deep/caches"));
    EXPECT_EQ(temporaryFolder(), home.path() + QStringLiteral("/deep/caches/kestro"));
}

TEST(Paths, temporaryFolder_leavesTheModeOfTheCachesAlone)
{
    const QTemporaryDir caches;
    ASSERT_EQ(chmod(QFile::encodeName(caches.path()).constData(), 0755), 0);
    const ScopedEnvironment runtime("XDG_RUNTIME_DIR");
    const ScopedEnvironment elsewhere("KESTRO_HOME");
    const ScopedEnvironment named("XDG_CACHE_HOME", caches.path());
    EXPECT_EQ(temporaryFolder(), caches.path() + QStringLiteral("/kestro"));
    EXPECT_EQ(modeOf(caches.path()), 0755U);
}

TEST(Paths, temporaryFolder_isNone_whenOthersMayWriteAmongTheCaches)
{
    const QTemporaryDir caches;
    ASSERT_EQ(chmod(QFile::encodeName(caches.path()).constData(), 0777), 0);
    const ScopedEnvironment runtime("XDG_RUNTIME_DIR");
    const ScopedEnvironment elsewhere("KESTRO_HOME");
    const ScopedEnvironment named("XDG_CACHE_HOME", caches.path());
    EXPECT_EQ(temporaryFolder(), QString());
}

TEST(Paths, temporaryFolder_isNone_whenALinkOfThatNameIsAmongTheCaches)
{
    const QTemporaryDir caches;
    const QTemporaryDir target;
    const ScopedEnvironment runtime("XDG_RUNTIME_DIR");
    const ScopedEnvironment elsewhere("KESTRO_HOME");
    const ScopedEnvironment named("XDG_CACHE_HOME", caches.path());
    ASSERT_TRUE(QFile::link(target.path(), caches.path() + QStringLiteral("/kestro")));
    EXPECT_EQ(temporaryFolder(), QString());
}

TEST(Paths, temporaryFolder_isElsewhere_whenTheSessionsHoldsALinkOfThatName)
{
    const QTemporaryDir session;
    const QTemporaryDir target;
    const QTemporaryDir caches;
    const ScopedEnvironment elsewhere("KESTRO_HOME");
    const ScopedEnvironment named("XDG_CACHE_HOME", caches.path());
    const ScopedEnvironment runtime("XDG_RUNTIME_DIR", session.path());
    ASSERT_TRUE(QFile::link(target.path(), session.path() + QStringLiteral("/kestro")));
    EXPECT_EQ(temporaryFolder(), caches.path() + QStringLiteral("/kestro"));
}

TEST(Paths, temporaryFolder_isElsewhere_whenOthersMayWriteInTheSessionsFolder)
{
    const QTemporaryDir session;
    const QTemporaryDir caches;
    const ScopedEnvironment elsewhere("KESTRO_HOME");
    const ScopedEnvironment named("XDG_CACHE_HOME", caches.path());
    const ScopedEnvironment runtime("XDG_RUNTIME_DIR", session.path());
    ASSERT_EQ(chmod(QFile::encodeName(session.path()).constData(), 0777), 0);
    EXPECT_EQ(temporaryFolder(), caches.path() + QStringLiteral("/kestro"));
}

} // namespace kestro
