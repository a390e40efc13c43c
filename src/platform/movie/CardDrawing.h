#pragma once

namespace kestro {

class OpenGL;

/// Whether what plays movies draws them with that OpenGL. Where it refuses it, they are drawn in software.
/// Takes tens of milliseconds. Main thread.
[[nodiscard]] bool drawsMovies(OpenGL& openGL);

} // namespace kestro
