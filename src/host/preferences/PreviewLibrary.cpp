#include "host/preferences/PreviewLibrary.h"

#include "host/preferences/Preview.h"
#include "host/start/Console.h"
#include "platform/base/Paths.h"

#include <QLibrary>

namespace kestro {

std::unique_ptr<Preview> loadPreview(QSettings& state)
{
    QLibrary library(packagePrefix() + QStringLiteral("/lib/kestro/libkestro-live.so"));
    const auto make = reinterpret_cast<Preview* (*)(QSettings*)>(library.resolve("kestroLivePreview"));
    if (make) return std::unique_ptr<Preview>(make(&state));
    complain(library.errorString());
    return nullptr;
}

} // namespace kestro
