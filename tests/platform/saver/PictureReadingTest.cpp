#include "platform/saver/PictureReading.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <memory>
#include <sys/stat.h>

namespace kestro {

namespace {

constexpr QSize room(160, 120);

/// A JPEG picture that the camera held on its side: turned a quarter to the right it stands upright.
QByteArray heldOnItsSide(const QByteArray& jpeg)
{
    const QByteArray tiff = QByteArray::fromHex("49492a00080000000100120103000100000006000000"
                                                "00000000");
    const QByteArray body = QByteArray("Exif\0\0", 6) + tiff;
    const auto length = static_cast<quint16>(body.size() + 2);
    QByteArray segment = QByteArray::fromHex("ffe1");
    segment.append(static_cast<char>(length >> 8)).append(static_cast<char>(length & 0xff));
    return jpeg.left(2) + segment + body + jpeg.mid(2);
}

class PictureReading : public testing::Test {
protected:
    [[nodiscard]] QString path(const char* name) const
    {
        return m_folder.filePath(QString::fromLatin1(name));
    }

    QString put(const char* name, const QImage& image)
    {
        EXPECT_TRUE(image.save(path(name)));
        return path(name);
    }
    QString put(const char* name, const QByteArray& bytes)
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        return path(name);
    }
    static QImage plain(QSize size, const QColor& colour)
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(colour);
        return image;
    }
    static QByteArray bytesOf(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    /// What is read of the file; null, and a fault of the test, where nothing can be.
    static QImage read(const QString& path)
    {
        const auto image = readPicture(path, room);
        EXPECT_TRUE(image.isOk()) << image.error().toStdString();
        return image ? image.value() : QImage();
    }

    QTemporaryDir m_folder;
};

} // namespace

TEST_F(PictureReading, picture_fillsTheRoomWithoutBeingDistorted)
{
    const std::pair<QSize, QSize> sizes[] = {
        {{1600, 1200}, {160, 120}}, {{1000, 100}, {160, 16}}, {{10, 20}, {60, 120}}, {{5000, 1}, {160, 1}}};
    for (const auto& [size, fitted] : sizes)
        for (const char* name : {"a.png", "a.jpg", "a.bmp"}) {
            const QImage image = read(put(name, plain(size, Qt::white)));
            EXPECT_EQ(image.size(), fitted) << name << size.width();
            EXPECT_EQ(image.format(), QImage::Format_RGB32);
            EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::white));
        }
}

TEST_F(PictureReading, picture_isTurned_asTheCameraWasHeld)
{
    QImage image = plain({400, 200}, Qt::black);
    for (int y = 0; y < 200; ++y)
        for (int x = 0; x < 200; ++x)
            image.setPixelColor(x, y, Qt::white);
    put("a.jpg", image);
    const QImage turned = read(put("b.jpg", heldOnItsSide(bytesOf(path("a.jpg")))));
    EXPECT_EQ(turned.size(), QSize(60, 120));
    EXPECT_GT(turned.pixelColor(30, 20).lightness(), 200) << "what was left is at the top";
    EXPECT_LT(turned.pixelColor(30, 100).lightness(), 50);
}

TEST_F(PictureReading, picture_isOnBlack_whereItIsTransparent)
{
    QImage image(160, 120, QImage::Format_ARGB32);
    image.fill(QColor(255, 255, 255, 128));
    const QColor half = read(put("a.png", image)).pixelColor(3, 3);
    EXPECT_NEAR(half.red(), 128, 2);
}

TEST_F(PictureReading, animation_isItsFirstPicture)
{
    QStringList command{QStringLiteral("-size"),
                        QStringLiteral("16x12"),
                        QStringLiteral("xc:red"),
                        QStringLiteral("xc:blue"),
                        QStringLiteral("-loop"),
                        QStringLiteral("0"),
                        path("a.gif")};
    ASSERT_EQ(QProcess::execute(QStringLiteral("convert"), command), 0);
    EXPECT_EQ(read(path("a.gif")).pixelColor(5, 5), QColor(Qt::red));
}

TEST_F(PictureReading, picture_isKnownByItsContent_whateverItsName)
{
    put("a.png", plain({10, 10}, Qt::green));
    EXPECT_EQ(read(put("b.jpg", bytesOf(path("a.png")))).pixelColor(1, 1), QColor(Qt::green));
}

TEST_F(PictureReading, largePicture_isReadSmall)
{
    EXPECT_EQ(read(put("a.jpg", plain({8000, 6000}, Qt::white))).size(), room);
    // 20000 by 20000 pixels, the head of a PNG file says.
    const QByteArray head = QByteArray::fromHex("89504e470d0a1a0a0000000d494844"
                                                "5200004e2000004e2008020000006c"
                                                "12d16e000000004944415435af061e");
    const auto huge = readPicture(put("b.png", head), room);
    ASSERT_FALSE(huge.isOk());
    EXPECT_EQ(huge.error(), QStringLiteral("too large"));
}

TEST_F(PictureReading, picture_isRefused_whenItHasMorePixelsThanMayBe)
{
    QImage largest(8192, 8192, QImage::Format_Mono);
    largest.fill(0);
    EXPECT_TRUE(readPicture(put("a.png", largest), room).isOk());
    const auto larger = readPicture(put("b.png", largest.copy(0, 0, 8200, 8192)), room);
    ASSERT_FALSE(larger.isOk());
    EXPECT_EQ(larger.error(), QStringLiteral("too large"));
}

TEST_F(PictureReading, read_saysWhy_whenThereIsNoPicture)
{
    put("a.png", plain({300, 300}, Qt::white));
    put("broken.png", bytesOf(path("a.png")).left(40));
    put("text.jpg", QByteArray("no picture"));
    put("empty.jpg", QByteArray());
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(QStringLiteral("folder.jpg")));
    ASSERT_EQ(mkfifo(QFile::encodeName(path("pipe.jpg")).constData(), 0600), 0);
    for (const char* name :
         {"broken.png", "text.jpg", "empty.jpg", "folder.jpg", "pipe.jpg", "missing.jpg"}) {
        const auto image = readPicture(path(name), room);
        ASSERT_FALSE(image.isOk()) << name;
        EXPECT_FALSE(image.error().isEmpty()) << name;
    }
}

TEST_F(PictureReading, read_ends_whenAStopIsAskedFor)
{
    const auto stop = std::make_unique<std::stop_source>();
    stop->request_stop();
    EXPECT_FALSE(readPicture(put("a.png", plain({300, 300}, Qt::white)), room, stop->get_token()).isOk());
    EXPECT_TRUE(listPictures(m_folder.path(), stop->get_token()).isEmpty());
}

TEST_F(PictureReading, list_holdsPicturesByTheirNames_inFoldersBelowToo)
{
    QDir folder(m_folder.path());
    ASSERT_TRUE(folder.mkpath(QStringLiteral("below/deep")) && folder.mkpath(QStringLiteral(".hidden")) &&
                folder.mkpath(QStringLiteral("c.jpg")));
    QStringList expected;
    for (const char* name : {"a.JPG", "b.png", "below/d.jpeg", "below/deep/c.gif"})
        expected.append(put(name, QByteArray("x")));
    for (const char* name : {"notes.txt", "noname", ".e.png", ".hidden/f.png"})
        put(name, QByteArray("x"));
    ASSERT_TRUE(QFile::link(m_folder.path(), path("loop")));
    EXPECT_EQ(listPictures(m_folder.path()), expected);
    EXPECT_TRUE(listPictures(path("nowhere")).isEmpty());
}

} // namespace kestro
