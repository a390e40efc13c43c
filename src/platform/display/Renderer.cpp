#include "platform/display/Renderer.h"

#include "platform/base/Log.h"

#include <QtGlobal>

namespace kestro {

void heedRendererWish()
{
    const QString wish = qEnvironmentVariable("KESTRO_RENDERER");
    if (wish.isEmpty() || wish == QLatin1String("software")) return;
    if (wish == QLatin1String("opengl"))
        logLine(QStringLiteral("KESTRO_RENDERER=opengl: this build draws in software."));
    else
        logLine(
            QStringLiteral("KESTRO_RENDERER is \"software\" or \"opengl\", not \"%1\": drawing in software.")
                .arg(wish));
}

} // namespace kestro
