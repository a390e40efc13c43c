#include "platform/display/gl/DriverEnvironment.h"

#include "platform/display/gl/RendererChoice.h"

#include <QFile>

namespace kestro {

GraphicsMachine graphicsMachine(const QString& kernel, const QString& devices)
{
    return {.hasCard = hasGraphicsDevice(devices),
            .hasNvidiaDriver = QFile::exists(kernel + QStringLiteral("/driver/nvidia/version"))};
}

std::vector<std::pair<const char*, const char*>> driverVariables(const GraphicsMachine& machine)
{
    if (machine.hasNvidiaDriver) return {{"CUDA_DISABLE_PERF_BOOST", "1"}};
    if (machine.hasCard) return {{"QT_XCB_GL_INTEGRATION", "xcb_egl"}};
    return {};
}

void prepareDrivers(const GraphicsMachine& machine)
{
    for (const auto& [name, value] : driverVariables(machine))
        if (!qEnvironmentVariableIsSet(name)) qputenv(name, value);
}

} // namespace kestro
