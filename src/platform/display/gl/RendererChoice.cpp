#include "platform/display/gl/RendererChoice.h"

#include "platform/base/Log.h"
#include "platform/display/gl/OpenGLDevice.h"

#include <QDir>

namespace kestro {

RendererWish rendererWish()
{
    const QString wish = qEnvironmentVariable("KESTRO_RENDERER");
    if (wish.isEmpty()) return RendererWish::None;
    if (wish == QLatin1String("opengl")) return RendererWish::OpenGL;
    if (wish != QLatin1String("software"))
        logLine(
            QStringLiteral("KESTRO_RENDERER is \"software\" or \"opengl\", not \"%1\": drawing in software.")
                .arg(wish));
    return RendererWish::Software;
}

OpenGLProbe systemProbe()
{
    return {[] { return hasGraphicsDevice(); },
            []() -> Result<std::shared_ptr<OpenGL>> {
                const auto device = OpenGLDevice::create();
                if (!device) return device.failure();
                return std::shared_ptr<OpenGL>(device.value());
            }};
}

bool hasGraphicsDevice(const QString& devices)
{
    const auto has = [](const QString& folder, const char* pattern) {
        const QStringList names{QLatin1String(pattern)};
        return !QDir(folder).entryList(names, QDir::Files | QDir::System).isEmpty();
    };
    return has(devices + QStringLiteral("/dri"), "renderD*") || has(devices, "nvidia*");
}

std::shared_ptr<OpenGL> chooseOpenGL(RendererWish wish, const OpenGLProbe& probe)
{
    const bool isForced = wish == RendererWish::OpenGL;
    if (wish == RendererWish::Software || (!isForced && !probe.hasDevice())) return nullptr;
    const auto openGL = probe.open();
    if (!openGL) {
        logLine(QStringLiteral("OpenGL cannot be used, %1: drawing in software.").arg(openGL.error()));
        return nullptr;
    }
    return isForced || openGL.value()->isHardware() ? openGL.value() : nullptr;
}

std::shared_ptr<OpenGL> chooseOpenGLOffScreen()
{
    const RendererWish wish = rendererWish();
    return wish == RendererWish::OpenGL ? chooseOpenGL(wish) : nullptr;
}

void warnOfOpenGLInGivenWindow()
{
    if (rendererWish() == RendererWish::OpenGL)
        logLine(
            QStringLiteral("KESTRO_RENDERER=opengl: windows of other programs are drawn in in software."));
}

} // namespace kestro
