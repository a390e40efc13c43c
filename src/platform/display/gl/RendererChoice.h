#pragma once

#include "platform/base/Result.h"

#include <QString>

#include <functional>
#include <memory>

namespace kestro {

class OpenGL;

/// What KESTRO_RENDERER says. Anything else than the two is answered with a log line, and drawn in software.
enum class RendererWish { None, Software, OpenGL };
[[nodiscard]] RendererWish rendererWish();

/// How the choice looks at the machine.
struct OpenGLProbe {
    /// Whether there can be a graphics card; costs next to nothing.
    std::function<bool()> hasDevice;
    /// Makes a context. The error says in a few words why there is none.
    std::function<Result<std::shared_ptr<OpenGL>>()> open;
};
[[nodiscard]] OpenGLProbe systemProbe();

/// The OpenGL to draw with, null to draw in software: that of a graphics card, or whatever there is when it
/// is wished for. Where a context was expected and there is none, one log line says so. Main thread; the
/// application is there.
[[nodiscard]] std::shared_ptr<OpenGL> chooseOpenGL(RendererWish wish,
                                                   const OpenGLProbe& probe = systemProbe());

/// The same for pictures that are not shown but kept: OpenGL only where it is wished for, because they would
/// have to come back from the card.
[[nodiscard]] std::shared_ptr<OpenGL> chooseOpenGLOffScreen();

/// For windows that other programs hand over: they are drawn in in software always, because OpenGL wants a
/// say in how a window is made. One log line where something else is wished for.
void warnOfOpenGLInGivenWindow();

/// Whether a device of a graphics card is in that folder.
[[nodiscard]] bool hasGraphicsDevice(const QString& devices = QStringLiteral("/dev"));

} // namespace kestro
