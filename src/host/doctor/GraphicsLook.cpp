#include "host/doctor/Examinations.h"
#include "platform/display/gl/OpenGL.h"
#include "platform/display/gl/RendererChoice.h"
#include "platform/display/surface/wayland/LayerShell.h"
#include "platform/movie/CardDecoding.h"
#include "platform/movie/CardDrawing.h"

#include <QGuiApplication>

namespace kestro {

namespace {

Findings drawnWith(OpenGL& openGL, const QString& words)
{
    Findings findings{fine(words)};
    if (!drawsMovies(openGL))
        findings +=
            better(QStringLiteral("movies are drawn in software: libmpv refuses this OpenGL"),
                   QStringLiteral("nothing but the processor's time is lost; a newer libmpv may take it"));
    return findings;
}

Findings renderer()
{
    const RendererWish wish = rendererWish();
    if (wish == RendererWish::Software)
        return {fine(QStringLiteral("drawn in software, as KESTRO_RENDERER says"))};
    const OpenGLProbe probe = systemProbe();
    const bool isForced = wish == RendererWish::OpenGL;
    if (!isForced && !probe.hasDevice())
        return {fine(QStringLiteral("drawn in software: there is no graphics card"))};
    const auto openGL = probe.open();
    if (!openGL)
        return {better(QStringLiteral("drawn in software: OpenGL cannot be used, ") + openGL.error(),
                       QStringLiteral("install the driver of the graphics card"))};
    OpenGL& found = *openGL.value();
    if (found.isHardware())
        return drawnWith(found, QStringLiteral("drawn by the graphics card, with OpenGL"));
    if (isForced)
        return drawnWith(found,
                         QStringLiteral("drawn with OpenGL by the processor, as KESTRO_RENDERER says"));
    return {better(QStringLiteral("drawn in software: there is a graphics card, and OpenGL does not use it"),
                   QStringLiteral("install the driver of the graphics card"))};
}

Findings decoding()
{
    Findings findings;
    for (const CardDecoding& decoding : cardDecodings())
        findings += fine(QStringLiteral("the card may decode, by %1: %2")
                             .arg(decoding.way, decoding.codecs.join(QStringLiteral(", "))));
    if (!findings.isEmpty()) return findings;
    if (!hasGraphicsDevice()) return {fine(QStringLiteral("movies are decoded by the processor"))};
    return {better(QStringLiteral("movies are decoded by the processor: the card offers no decoder"),
                   QStringLiteral("install its driver for VA-API, or NVIDIA's own"))};
}

Findings display()
{
    if (QGuiApplication::platformName() != u"wayland") return {};
    if (LayerShell::create())
        return {fine(QStringLiteral("shown above all windows, by a layer of the compositor"))};
    return {better(
        QStringLiteral("shown as a full-screen window: the compositor has no layers for others"),
        QStringLiteral("nothing to do on GNOME; a window that was full screen may not be afterwards"))};
}

} // namespace

Findings lookAtGraphics()
{
    return renderer() + decoding() + display();
}

} // namespace kestro
