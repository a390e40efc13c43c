#include "platform/base/RegularFile.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace kestro {

namespace {

class RegularFile : public testing::Test {
protected:
    [[nodiscard]] QString fileOf(qsizetype size) const
    {
        QFile file(m_folder.filePath(QStringLiteral("a")));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(QByteArray(size, 'x')), size);
        return file.fileName();
    }

    QTemporaryDir m_folder;
};

} // namespace

TEST_F(RegularFile, read_answersTheWhole_upToTheBound)
{
    for (const qsizetype size : {0, 1, 4096, 3'000'000})
        EXPECT_EQ(readRegularFile(fileOf(size), size).value(), QByteArray(size, 'x'));
    EXPECT_EQ(readRegularFile(fileOf(101), 100).error(), QStringLiteral("larger than 100 bytes"));
}

TEST_F(RegularFile, read_reachesTheBound_whenTheSizeIsNotTold)
{
    const QString told(QStringLiteral("/proc/self/maps")); // of no size, and longer than a block
    EXPECT_GT(readRegularFile(told, 1'000'000).value().size(), 4096);
    EXPECT_EQ(readRegularFile(told, 100).error(), QStringLiteral("larger than 100 bytes"));
}

TEST_F(RegularFile, read_isAnErrorAndNoWait_whenItIsNone)
{
    const QString pipe = m_folder.filePath(QStringLiteral("pipe"));
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    for (const QString& path : {pipe, m_folder.path(), QStringLiteral("/dev/zero")})
        EXPECT_EQ(readRegularFile(path, 100).error(), QStringLiteral("no plain file")) << qPrintable(path);
    EXPECT_EQ(readRegularFile(m_folder.filePath(QStringLiteral("none")), 100).error(),
              QStringLiteral("No such file or directory"));
}

TEST_F(RegularFile, read_givesUp_onceItIsNotWanted)
{
    const auto part = readRegularFile(fileOf(3'000'000), 3'000'000, [] { return false; });
    ASSERT_TRUE(part);
    EXPECT_LT(part.value().size(), 3'000'000);
}

} // namespace kestro
