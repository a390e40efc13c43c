#include "widgets/StartFolder.h"

#include "platform/base/FileLook.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace kestro {

namespace {

constexpr std::chrono::seconds patience{1}; ///< with a folder's disk

} // namespace

QString startFolder(const QString& wanted)
{
    const QString movies = QStandardPaths::writableLocation(QStandardPaths::MoviesLocation);
    for (const QString& folder : {wanted, movies})
        if (isFileThere(folder, patience) && QFileInfo(folder).isDir()) return folder;
    return QDir::homePath();
}

} // namespace kestro
