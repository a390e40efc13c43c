#include "platform/display/view/Picture.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro {

namespace {

class PictureTest : public testing::Test {
protected:
    [[nodiscard]] QString write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }

    QTemporaryDir folder;
};

const QByteArray drawing = R"(<?xml version="1.0"?>
<svg xmlns="http://www.w3.org/2000/svg" width="30" height="20">
<rect x="0" y="0" width="15" height="20" fill="#ff0000"/></svg>)";

} // namespace

TEST_F(PictureTest, loadPicture_drawsSvgAtItsOwnSizeAndTheWantedDensity)
{
    const auto picture = loadPicture(write(QStringLiteral("sign.svg"), drawing), 2.0);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->size, (Size{30, 20}));
    EXPECT_EQ(picture->image.size(), QSize(60, 40));
    EXPECT_EQ(picture->image.format(), QImage::Format_ARGB32_Premultiplied);
    EXPECT_EQ(picture->image.pixelColor(10, 10), QColor(Qt::red));
    EXPECT_EQ(picture->image.pixelColor(40, 10).alpha(), 0);
}

TEST_F(PictureTest, loadPicture_readsPixelFormats_whateverTheirName)
{
    QImage image(7, 5, QImage::Format_RGB888);
    image.fill(Qt::green);
    const QString path = folder.filePath(QStringLiteral("picture.dat"));
    ASSERT_TRUE(image.save(path, "PNG"));
    const auto picture = loadPicture(path);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->size, (Size{7, 5}));
    EXPECT_EQ(picture->image.format(), QImage::Format_RGB32);
    EXPECT_EQ(picture->image.pixelColor(3, 3), QColor(Qt::green));

    image = QImage(7, 5, QImage::Format_ARGB32);
    image.fill(QColor(0, 0, 255, 128));
    ASSERT_TRUE(image.save(path, "PNG"));
    EXPECT_EQ(loadPicture(path)->image.format(), QImage::Format_ARGB32_Premultiplied);
}

TEST_F(PictureTest, loadPicture_answersNothing_whenItCannotBeRead)
{
    EXPECT_FALSE(loadPicture(folder.filePath(QStringLiteral("missing.svg"))));
    EXPECT_FALSE(loadPicture(folder.path()));
    EXPECT_FALSE(loadPicture(write(QStringLiteral("empty.png"), {})));
    EXPECT_FALSE(loadPicture(write(QStringLiteral("broken.svg"), "<svg width=\"3\"")));
    EXPECT_FALSE(loadPicture(write(QStringLiteral("text.png"), "not a picture")));
}

TEST_F(PictureTest, blankPicture_isClear)
{
    const Picture picture = blankPicture({12.4F, 3});
    EXPECT_EQ(picture.size, (Size{12.4F, 3}));
    EXPECT_EQ(picture.image.size(), QSize(12, 3));
    EXPECT_EQ(picture.image.pixelColor(5, 1).alpha(), 0);
    EXPECT_FALSE(blankPicture({0, 0}).isNull());
}

} // namespace kestro
