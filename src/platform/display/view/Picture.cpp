#include "platform/display/view/Picture.h"

#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>
#include <cmath>

namespace kestro {

namespace {

Size sizeInPoints(QSize pixels)
{
    return {static_cast<float>(pixels.width()), static_cast<float>(pixels.height())};
}

std::optional<Picture> loadDrawing(const QByteArray& bytes, double pixelRatio)
{
    QSvgRenderer drawing;
    if (!drawing.load(bytes)) return {};
    const QSize points = drawing.defaultSize();
    const QSize pixels(static_cast<int>(std::lround(points.width() * pixelRatio)),
                       static_cast<int>(std::lround(points.height() * pixelRatio)));
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) return {};
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawing.render(&painter);
    return Picture{image, sizeInPoints(points)};
}

std::optional<Picture> loadPixels(const QString& path)
{
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QImage image = reader.read();
    if (image.isNull()) return {};
    const auto format = image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
    return Picture{image.convertToFormat(format), sizeInPoints(image.size())};
}

bool looksLikeDrawing(const QByteArray& bytes)
{
    const QByteArray start = bytes.left(4096);
    return start.contains("<svg") || (start.trimmed().startsWith("<?xml") && bytes.contains("<svg"));
}

} // namespace

Picture blankPicture(Size size)
{
    const QSize pixels(std::max(1, static_cast<int>(std::lround(size.width))),
                       std::max(1, static_cast<int>(std::lround(size.height))));
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return {image, size};
}

std::optional<Picture> loadPicture(const QString& path, double pixelRatio)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {};
    const QByteArray start = file.peek(4096);
    if (looksLikeDrawing(start) || path.endsWith(QLatin1String(".svg"), Qt::CaseInsensitive))
        return loadDrawing(file.readAll(), pixelRatio);
    file.close();
    return loadPixels(path);
}

} // namespace kestro
