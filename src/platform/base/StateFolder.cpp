#include "platform/base/StateFolder.h"

#include "platform/base/Paths.h"

#include <QDir>

namespace kestro {

QString stateFolder()
{
    const QString other = qEnvironmentVariable("XDG_STATE_HOME");
    const bool isElsewhere = qEnvironmentVariable("KESTRO_HOME").isEmpty() && QDir::isAbsolutePath(other);
    return (isElsewhere ? QDir::cleanPath(other) : homeFolder() + QStringLiteral("/.local/state")) +
           QStringLiteral("/kestro");
}

} // namespace kestro
