#include "host/session/KestroBundle.h"

#include "host/start/Console.h"
#include "platform/base/Paths.h"

namespace kestro {

std::optional<PrincipalClass> kestroSaver()
{
    const QString path = packageLibraries() + QStringLiteral("/Kestro.saver");
    const auto bundle = SaverBundle::load(path);
    if (!bundle) {
        printError(bundle.error());
        return std::nullopt;
    }
    const auto principal = bundle.value().principalClass();
    if (principal && principal->isScreenSaverView()) return principal;
    printError(QStringLiteral("No screen saver in ") + path);
    return std::nullopt;
}

} // namespace kestro
