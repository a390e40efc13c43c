#include "host/preferences/PreviewLibrary.h"

#include "host/preferences/Preview.h"
#include "host/start/PackageLibrary.h"

namespace kestro {

std::unique_ptr<Preview> loadPreview(QSettings& state)
{
    const auto make =
        reinterpret_cast<Preview* (*)(QSettings*)>(functionOf(QStringLiteral("live"), "kestroLivePreview"));
    return std::unique_ptr<Preview>(make ? make(&state) : nullptr);
}

} // namespace kestro
