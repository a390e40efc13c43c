#include "host/render/PictureFolder.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro {

TEST(PictureFolder, pictureName_sortsByTime_whenSecondsGrow)
{
    EXPECT_EQ(PictureFolder::pictureName(0, 1), QStringLiteral("screen0-00001.000.png"));
    EXPECT_EQ(PictureFolder::pictureName(3, 86399.9994), QStringLiteral("screen3-86399.999.png"));
    EXPECT_LT(PictureFolder::pictureName(0, 9.5), PictureFolder::pictureName(0, 10));
}

TEST(PictureFolder, write_keepsEveryPixel_whenThePictureIsReadBack)
{
    const QTemporaryDir home;
    const auto folder = PictureFolder::open(home.filePath(QStringLiteral("a/b")));
    ASSERT_TRUE(folder.isOk());
    QImage picture(5, 3, QImage::Format_RGB32);
    picture.fill(qRgb(1, 2, 3));
    picture.setPixel(4, 2, qRgb(250, 128, 7));
    const auto path = folder.value().write(picture, 1, 2.5);
    ASSERT_TRUE(path.isOk());
    EXPECT_EQ(path.value(), home.filePath(QStringLiteral("a/b/screen1-00002.500.png")));
    EXPECT_EQ(QImage(path.value()).convertToFormat(QImage::Format_RGB32), picture);
}

TEST(PictureFolder, open_saysWhy_whenTheFolderCannotBeMade)
{
    const QTemporaryDir home;
    QFile blocking(home.filePath(QStringLiteral("file")));
    ASSERT_TRUE(blocking.open(QIODevice::WriteOnly));
    const auto folder = PictureFolder::open(home.filePath(QStringLiteral("file/pictures")));
    ASSERT_FALSE(folder.isOk());
    EXPECT_TRUE(folder.error().contains(home.filePath(QStringLiteral("file/pictures"))));
}

TEST(PictureFolder, write_saysWhy_whenTheFileCannotBeWritten)
{
    const QTemporaryDir home;
    const auto folder = PictureFolder::open(home.path());
    ASSERT_TRUE(folder.isOk());
    ASSERT_TRUE(QDir(home.path()).mkdir(PictureFolder::pictureName(0, 1)));
    const auto path = folder.value().write(QImage(2, 2, QImage::Format_RGB32), 0, 1);
    ASSERT_FALSE(path.isOk());
    EXPECT_TRUE(path.error().contains(PictureFolder::pictureName(0, 1)));
}

} // namespace kestro
