#include "widgets/StartFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace kestro {

QString startFolder(const QString& wanted)
{
    const QString movies = QStandardPaths::writableLocation(QStandardPaths::MoviesLocation);
    for (const QString& folder : {wanted, movies})
        if (!folder.isEmpty() && QFileInfo(folder).isDir()) return folder;
    return QDir::homePath();
}

} // namespace kestro
