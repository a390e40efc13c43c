#pragma once

#include "platform/display/view/Window.h"

#include <memory>

namespace kestro {

/// A transparent window above all others, to leave a picture in where a movie was. The view must outlive it.
/// Tested by FadeOutTest and DissolveTest.
[[nodiscard]] std::unique_ptr<Window> openPictureWindow(const Window::Description& description, View& view);
/// Takes it from sight and the view out of it. Nothing where it is null.
void closePictureWindow(std::unique_ptr<Window>& window);

} // namespace kestro
