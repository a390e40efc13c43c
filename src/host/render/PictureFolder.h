#pragma once

#include "platform/base/Result.h"

#include <QString>

class QImage;

namespace kestro {

/// The folder that `kestro render` writes its pictures to: one PNG a screen and moment. A plain value; main
/// thread.
class PictureFolder final {
public:
    /// Makes the folder when it is missing; the error says why it cannot.
    [[nodiscard]] static Result<PictureFolder> open(const QString& path);

    /// The picture's file name: screens count from 0, seconds are padded so that names sort by time.
    [[nodiscard]] static QString pictureName(int screen, double seconds);
    /// Writes the picture; answers its path, or why it could not be written.
    [[nodiscard]] Result<QString> write(const QImage& picture, int screen, double seconds) const;

private:
    explicit PictureFolder(QString path)
        : m_path(std::move(path))
    {
    }

    QString m_path;
};

} // namespace kestro
