#include "resources/Command.h"

#include <QFile>
#include <QImage>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdlib>
#include <gtest/gtest.h>

namespace kestro {

namespace {

QString resource(const char* name)
{
    return QStringLiteral(KESTRO_BUNDLE "/Resources/") + QLatin1String(name);
}

/// The picture `name` at its own size over black; a null image when Qt cannot read it.
QImage drawn(const char* name)
{
    QSvgRenderer renderer(resource(name));
    if (!renderer.isValid()) return {};
    QImage image(renderer.defaultSize(), QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    renderer.render(&painter, QRectF(image.rect()));
    return image;
}

/// The share of pixels of `area` in `image` that are brighter than a dim grey.
double brightShare(const QImage& image, const QRect& area)
{
    int bright = 0;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            bright += qGray(image.pixel(x, y)) > 100;
    return static_cast<double>(bright) / (area.width() * area.height());
}

} // namespace

TEST(BundleResources, signs_showAPictureAndLeaveRoomForWords_whenDrawnOverBlack)
{
    for (const char* name : {"select.svg", "failed.svg"}) {
        const QImage sign = drawn(name);
        ASSERT_EQ(sign.size(), QSize(420, 260)) << name;
        EXPECT_GT(brightShare(sign, QRect(80, 26, 260, 126)), 0.15) << name;
        EXPECT_EQ(brightShare(sign, QRect(30, 156, 360, 84)), 0) << name;
    }
}

TEST(BundleResources, failed_isTheDarkerOfTheSigns_inItsMiddleFrame)
{
    const QRect middle(152, 50, 116, 82);
    EXPECT_GT(brightShare(drawn("select.svg"), middle), 0.2);
    EXPECT_LT(brightShare(drawn("failed.svg"), middle), 0.1);
}

TEST(BundleResources, preview_showsAPictureAndAName_whenDrawnOverBlack)
{
    const QImage sign = drawn("preview.svg");
    ASSERT_EQ(sign.size(), QSize(216, 136));
    EXPECT_GT(brightShare(sign, QRect(68, 22, 80, 62)), 0.4);
    EXPECT_GT(brightShare(sign, QRect(72, 102, 72, 20)), 0.1);
}

TEST(BundleResources, preview_differsFromSelect_whenBroughtToOneSize)
{
    const QImage select =
        drawn("select.svg").scaled(216, 136, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const QImage preview = drawn("preview.svg");
    ASSERT_EQ(select.size(), preview.size());
    int different = 0;
    for (int y = 0; y < preview.height(); ++y)
        for (int x = 0; x < preview.width(); ++x)
            different += std::abs(qGray(select.pixel(x, y)) - qGray(preview.pixel(x, y))) > 40;
    EXPECT_GT(different, preview.width() * preview.height() / 10);
}

TEST(BundleResources, icon_isSquareAndColoured_whenDrawn)
{
    const QImage icon = drawn("kestro.svg");
    ASSERT_EQ(icon.size(), QSize(128, 128));
    EXPECT_GT(brightShare(icon, QRect(24, 12, 80, 104)), 0.2);
    EXPECT_EQ(icon.pixelColor(0, 0), QColor(Qt::black)); // the corners are clear
}

TEST(BundleResources, pictures_needNoFont_whenRead)
{
    for (const char* name : {"select.svg", "failed.svg", "preview.svg", "kestro.svg"}) {
        QFile file(resource(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        const QByteArray source = file.readAll();
        EXPECT_FALSE(source.contains("<text")) << name;
        EXPECT_FALSE(source.contains("<filter")) << name;
    }
}

TEST(BundleResources, infoPlist_namesThePrincipalClass_whenParsed)
{
    const QByteArray json = test::outputOf(
        QStringLiteral(KESTRO_PYTHON),
        {QStringLiteral("-c"),
         QStringLiteral(
             "import json, plistlib, sys; print(json.dumps(plistlib.load(open(sys.argv[1], 'rb'))))"),
         QStringLiteral(KESTRO_BUNDLE "/Info.plist")});
    const QJsonObject info = QJsonDocument::fromJson(json).object();
    const auto value = [&info](const char* key) {
        return info.value(QLatin1String(key)).toString().toStdString();
    };
    EXPECT_EQ(value("CFBundleExecutable"), "Kestro");
    EXPECT_EQ(value("NSPrincipalClass"), "MySaver");
    EXPECT_EQ(value("CFBundleIdentifier"), "org.kestro.Kestro");
    EXPECT_EQ(value("CFBundleName"), "Kestro");
    EXPECT_EQ(value("CFBundleShortVersionString"), KESTRO_VERSION);
}

} // namespace kestro
