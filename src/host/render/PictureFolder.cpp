#include "host/render/PictureFolder.h"

#include "platform/base/Reasons.h"

#include <QDir>
#include <QImageWriter>
#include <QSaveFile>

#include <cerrno>

namespace kestro {

Result<PictureFolder> PictureFolder::open(const QString& path)
{
    errno = 0;
    if (QDir().mkpath(path)) return PictureFolder(path);
    const QString reason = errno != 0 ? systemReason(errno) : QStringLiteral("not a folder");
    return Error{QStringLiteral("Cannot make folder %1: %2").arg(path, reason)};
}

QString PictureFolder::pictureName(int screen, double seconds)
{
    return QString::asprintf("screen%d-%09.3f.png", screen, seconds);
}

Result<QString> PictureFolder::write(const QImage& picture, int screen, double seconds) const
{
    const QString path = QDir(m_path).filePath(pictureName(screen, seconds));
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return Error{QStringLiteral("Cannot write %1: %2").arg(path, file.errorString())};
    QImageWriter writer(&file, "png");
    // Drawings and movies shrink to a fifth here; packing harder takes three times as long for little.
    writer.setCompression(20);
    if (!writer.write(picture))
        return Error{QStringLiteral("Cannot write %1: %2").arg(path, writer.errorString())};
    if (file.commit()) return path;
    return Error{QStringLiteral("Cannot write %1: %2").arg(path, file.errorString())};
}

} // namespace kestro
