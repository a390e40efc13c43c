#include "engine/PictureWindow.h"

namespace kestro {

std::unique_ptr<Window> openPictureWindow(const Window::Description& description, View& view)
{
    auto window = std::make_unique<Window>(description);
    window->setOpaque(false);
    window->setBackgroundColor(Qt::transparent);
    window->setLevel(WindowLevel::Shielding);
    window->setContentView(&view);
    window->orderFront();
    return window;
}

void closePictureWindow(std::unique_ptr<Window>& window)
{
    if (!window) return;
    window->close();
    window->setContentView(nullptr);
    window.reset();
}

} // namespace kestro
