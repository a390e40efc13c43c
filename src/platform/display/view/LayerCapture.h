#pragma once

#include "platform/display/view/View.h"

#include <QImage>

#include <optional>

namespace kestro {

class Layer;

/// The layer's newest picture at that size in pixels: RGB32, rows aligned. Null when it has none.
/// `reuse`, where it has the right size and nobody else holds it, gives its memory.
/// Tested by HeldPictureTest.
[[nodiscard]] QImage renderLayer(Layer& layer, QSize size, QImage reuse = {});

/// What the layers in `view` show on the screen now, to be held at its place. Nothing when none shows
/// anything: no picture yet, or the view is in no visible window.
[[nodiscard]] std::optional<View::HeldPicture> captureLayers(const View& view);

} // namespace kestro
