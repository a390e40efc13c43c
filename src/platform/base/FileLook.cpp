#include "platform/base/FileLook.h"

#include "platform/base/ChildProcess.h"
#include "platform/base/Paths.h"

#include <QFileInfo>

namespace kestro {

bool isFileThere(const QString& path)
{
    // A file of ours it might hold open for ever.
    const auto look = ChildProcess::start({.file = packageLibraries() + QStringLiteral("/kestro-file-look"),
                                           .arguments = {path},
                                           .environment = QStringList(),
                                           .group = ChildProgram::Group::OwnSession});
    return look ? look.value()->waitForEnd().isSuccess() : QFileInfo::exists(path);
}

} // namespace kestro
