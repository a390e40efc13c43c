#pragma once

namespace kestro {

/// Reads KESTRO_RENDERER. Everything is drawn in software; a wish for something else is answered with one log
/// line. Main thread.
void heedRendererWish();

} // namespace kestro
