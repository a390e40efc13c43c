#include "platform/saver/PictureReading.h"

#include "platform/base/Bounds.h"

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>

#include <algorithm>
#include <exception>
#include <mutex>
#include <utility>

namespace kestro {

namespace {

constexpr qsizetype mostFiles = 20000;

/// A file that ends when it is told to: that is how a decoder in the middle of a large picture is stopped.
class StoppableFile final : public QFile {
public:
    StoppableFile(const QString& path, const std::stop_token& stop)
        : QFile(path)
        , m_stop(stop)
    {
    }

protected:
    qint64 readData(char* data, qint64 most) override
    {
        return m_stop.stop_requested() ? -1 : QFile::readData(data, most);
    }

private:
    const std::stop_token& m_stop;
};

QStringList pictureNames()
{
    QStringList names;
    for (const QByteArray& format : QImageReader::supportedImageFormats())
        names.append(QStringLiteral("*.") + QString::fromLatin1(format));
    return names;
}

/// The decoder scales before the picture is turned.
void scaleToFit(QImageReader& reader, QSize room)
{
    const QSize size = reader.size();
    if (size.isEmpty()) return;
    if (reader.transformation().testFlag(QImageIOHandler::TransformationRotate90)) room.transpose();
    reader.setScaledSize(size.scaled(room, Qt::KeepAspectRatio).expandedTo({1, 1}));
}

/// For formats that do not tell their size before they are read.
QImage fitted(const QImage& image, QSize room)
{
    const QSize size = image.size().scaled(room, Qt::KeepAspectRatio).expandedTo({1, 1});
    return image.size() == size ? image : image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QImage onBlack(const QImage& image)
{
    if (!image.hasAlphaChannel()) return image.convertToFormat(QImage::Format_RGB32);
    QImage flat(image.size(), QImage::Format_RGB32);
    flat.fill(Qt::black);
    QPainter(&flat).drawImage(0, 0, image);
    return flat;
}

/// It counts for all that Qt decodes in this process.
void limitMemory()
{
    static std::once_flag isDone;
    std::call_once(isDone, [] { QImageReader::setAllocationLimit(Bounds::pictureMegabytes); });
}

Result<QImage> decode(const QString& path, QSize room, const std::stop_token& stop)
{
    if (!QFileInfo(path).isFile()) return Error{QStringLiteral("no regular file")};
    StoppableFile file(path, stop);
    if (!file.open(QIODevice::ReadOnly)) return Error{file.errorString()};
    limitMemory();
    QImageReader reader(&file);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (qint64{size.width()} * size.height() > Bounds::picturePixels)
        return Error{QStringLiteral("too large")};
    scaleToFit(reader, room);
    const QImage image = reader.read();
    if (stop.stop_requested()) return Error{QStringLiteral("stopped")};
    if (image.isNull()) return Error{reader.errorString()};
    QImage picture = onBlack(fitted(image, room));
    if (picture.isNull()) return Error{QStringLiteral("not enough memory")};
    return picture;
}

} // namespace

QStringList listPictures(const QString& folder, const std::stop_token& stop)
{
    QStringList pictures;
    QDirIterator files(folder, pictureNames(), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext() && pictures.size() < mostFiles && !stop.stop_requested())
        pictures.append(files.next());
    std::ranges::sort(pictures);
    return pictures;
}

Result<QImage> readPicture(const QString& path, QSize room, const std::stop_token& stop)
{
    try {
        return decode(path, room.expandedTo({1, 1}), stop);
    } catch (const std::exception& thrown) { // a decoder's, out of memory for example
        return Error{QString::fromUtf8(thrown.what())};
    }
}

} // namespace kestro
