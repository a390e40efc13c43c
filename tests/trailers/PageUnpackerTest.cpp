#include "trailers/PageUnpacker.h"

#include "platform/base/Bounds.h"
#include "platform/base/ScopedEnvironment.h"
#include "trailers/ShellCommand.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <csignal>
#include <gtest/gtest.h>

namespace kestro {

namespace {

bool always()
{
    return true;
}

// What gzip makes of `script`'s output.
QByteArray packed(const QString& script)
{
    QProcess shell;
    shell.start(QStringLiteral("sh"), {QStringLiteral("-c"), script + QStringLiteral(" | gzip -nc1")});
    return shell.waitForFinished(180000) ? shell.readAllStandardOutput() : QByteArray();
}

class PageUnpackerTest : public testing::Test {
protected:
    QTemporaryDir m_folder{QDir::tempPath() + QStringLiteral("/unpack-XXXXXX")};
    PageUnpacker m_unpacker{m_folder.path()};
};

} // namespace

TEST_F(PageUnpackerTest, isPacked_needsAllFourBytes_whenPagesBeginAlike)
{
    EXPECT_TRUE(PageUnpacker::isPacked(QByteArray("\x1f\x8b\x08\x00rest", 8)));
    EXPECT_FALSE(PageUnpacker::isPacked(QByteArray("\x1f\x8b\x08\x08rest", 8)));
    EXPECT_FALSE(PageUnpacker::isPacked(QByteArray("\x1f\x8b\x00\x00rest", 8)));
    EXPECT_FALSE(PageUnpacker::isPacked("<html>"));
}

TEST_F(PageUnpackerTest, unpack_answersThePage_whenItIsWhole)
{
    EXPECT_EQ(m_unpacker.unpack(packed(QStringLiteral("printf '<html>'")), always).value(), "<html>");
    EXPECT_EQ(m_unpacker.unpack(packed(QStringLiteral("printf ''")), always).value(), "");
    EXPECT_EQ(m_unpacker.unpack(packed(QStringLiteral("printf a")) + "trailing", always).value(), "a");
}

TEST_F(PageUnpackerTest, unpack_answersNoEarlierPage_whenThisOneIsBroken)
{
    ASSERT_TRUE(m_unpacker.unpack(packed(QStringLiteral("printf first")), always).isOk());
    for (const QByteArray& broken :
         {QByteArray("\x1f\x8b\x08\x00", 4), packed(QStringLiteral("printf second")).chopped(3)})
        EXPECT_FALSE(m_unpacker.unpack(broken, always).isOk());
}

TEST_F(PageUnpackerTest, unpack_givesUp_whenThePageUnfoldsToTooMuch)
{
    const QByteArray bomb = packed(QStringLiteral("head -c %1 /dev/zero").arg(Bounds::unpackedPageBytes + 1));
    ASSERT_LT(bomb.size(), 4 * 1024 * 1024);
    const auto page = m_unpacker.unpack(bomb, always);
    ASSERT_FALSE(page.isOk());
    EXPECT_EQ(page.error(), QStringLiteral("unpacked it is too large"));
    EXPECT_EQ(m_unpacker.unpackedBytes(), Bounds::unpackedPageBytes);
    EXPECT_TRUE(QDir(m_folder.path()).isEmpty());
}

TEST_F(PageUnpackerTest, unpack_leavesNoFile_whateverTheEnd)
{
    const auto whole = packed(QStringLiteral("printf page"));
    ASSERT_TRUE(m_unpacker.unpack(whole, always).isOk());
    EXPECT_EQ(m_unpacker.unpackedBytes(), 4);
    ASSERT_FALSE(m_unpacker.unpack(whole.chopped(3), always).isOk());
    ASSERT_FALSE(
        m_unpacker.unpack(packed(QStringLiteral("head -c 90000000 /dev/zero")), [] { return false; }).isOk());
    EXPECT_TRUE(QDir(m_folder.path()).isEmpty());
}

TEST_F(PageUnpackerTest, unpack_isAnError_whenThereIsNoFolder)
{
    for (const QString& folder : {QString(), QStringLiteral("relative"), QStringLiteral("/proc/none")})
        EXPECT_FALSE(PageUnpacker(folder).unpack(packed(QStringLiteral("printf a")), always).isOk());
    EXPECT_FALSE(QFile::exists(QStringLiteral("/__tmp__")));
    EXPECT_FALSE(QFile::exists(QStringLiteral("/__tmp__.gz")));
}

TEST_F(PageUnpackerTest, unpackingFolder_isTheCache_unlessAShellCannotTakeItsName)
{
    const ScopedEnvironment home("KESTRO_HOME", QStringLiteral("/home/ada"));
    EXPECT_EQ(unpackingFolder(), QStringLiteral("/home/ada/.cache/kestro"));
    const ScopedEnvironment odd("KESTRO_HOME", QStringLiteral("/home/Ada L"));
    EXPECT_EQ(unpackingFolder(), QDir::tempPath());
}

TEST_F(PageUnpackerTest, unpack_runsNothing_whenTheFoldersNameIsNotPlain)
{
    const QString odd = m_folder.filePath(QStringLiteral("a;touch b"));
    ASSERT_TRUE(QDir().mkpath(odd));
    EXPECT_FALSE(PageUnpacker(odd).unpack(packed(QStringLiteral("printf a")), always).isOk());
    EXPECT_TRUE(QDir(odd).isEmpty());
}

TEST_F(PageUnpackerTest, isPlainPath_takesLettersDigitsAndFewSigns_only)
{
    EXPECT_TRUE(isPlainPath(QStringLiteral("/run/user/1000/kestro/__tmp__.gz")));
    for (const char* path : {"", "relative", "/a b", "/a$b", "/a'b", "/a\"b", "/a\nb", "/a`b", "/ä", "/a*"})
        EXPECT_FALSE(isPlainPath(QString::fromUtf8(path))) << path;
}

TEST(ShellCommand, runShellCommand_answersTheStatus_whateverTheEnd)
{
    EXPECT_EQ(runShellCommand("true", 1024, always).value(), 0);
    EXPECT_EQ(runShellCommand("sh -c 'exit 3'", 1024, always).value(), 3);
    EXPECT_EQ(runShellCommand("no-such-program", 1024, always).value(), 127);
    EXPECT_EQ(runShellCommand("sh -c 'kill -TERM $$'", 1024, always).value(), 128 + SIGTERM);
}

TEST(ShellCommand, runShellCommand_endsIt_whenItIsNoLongerWanted)
{
    int looks = 0;
    const auto twoLooks = [&looks] { return ++looks < 3; };
    EXPECT_EQ(runShellCommand("tail -f /dev/null", 1024, twoLooks).value(), 128 + SIGKILL);
}

TEST(ShellCommand, runShellCommand_limitsWhatItWrites_whenItWritesMore)
{
    const QTemporaryDir folder;
    const QByteArray file = QFile::encodeName(folder.filePath(QStringLiteral("f")));
    const auto status = runShellCommand("dd if=/dev/zero of=" + file + " bs=512 count=9", 1024, always);
    EXPECT_NE(status.value(), 0);
    EXPECT_EQ(QFile(QFile::decodeName(file)).size(), 1024);
}

} // namespace kestro
