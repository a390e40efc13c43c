#include "host/doctor/Examinations.h"
#include "platform/web/HelperEngine.h"

namespace kestro {

std::unique_ptr<Examination> webExamination()
{
    return std::make_unique<QuickExamination>(QStringLiteral("Web content"), [] {
        if (const auto machine = checkMachine(HelperSettings::ofPackage()); !machine)
            return Findings{
                better(QStringLiteral("entries with Flash movies are passed over: ") + machine.error(),
                       QStringLiteral("install kestro-web, and run Kestro as a plain user"))};
        return Findings{fine(QStringLiteral("the helper is there, and the browser's sandbox is used"))};
    });
}

} // namespace kestro
