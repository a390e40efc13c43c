#include "platform/display/DisplayTest.h"

#include "platform/display/gl/RendererChoice.h"

namespace kestro {

std::shared_ptr<OpenGL> testOpenGL()
{
    return chooseOpenGLOffScreen();
}

bool FakeLayer::render(const PixelTarget& target)
{
    if (!m_hasPicture || m_isBroken) return false;
    targets.push_back(target);
    for (int y = 0; y < target.height; ++y) {
        auto* row = reinterpret_cast<QRgb*>(target.pixels + qsizetype{target.stride} * y);
        for (int x = 0; x < target.width; ++x)
            row[x] = pixelAt(x, y);
    }
    return true;
}

QRgb FakeLayer::pixelAt(int x, int y) const
{
    return m_colour.isValid() ? m_colour.rgb() : qRgb(x % 256, y % 256, (x / 256) * 16 + y / 256);
}

} // namespace kestro
