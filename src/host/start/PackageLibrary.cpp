#include "host/start/PackageLibrary.h"

#include "host/start/Console.h"
#include "platform/base/Paths.h"

#include <QLibrary>

namespace kestro {

QFunctionPointer functionOf(const QString& library, const char* name)
{
    QLibrary file(packageLibraries() + QStringLiteral("/libkestro-%1.so").arg(library));
    const QFunctionPointer function = file.resolve(name);
    if (!function) printError(file.errorString());
    return function;
}

} // namespace kestro
