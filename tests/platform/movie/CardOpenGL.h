#pragma once

#include "platform/display/gl/OpenGL.h"
#include "platform/display/scene/Renderer.h"

#include <memory>

namespace kestro {

/// Draws as another does, and says that a graphics card does it.
class CardOpenGL : public OpenGL {
public:
    explicit CardOpenGL(std::shared_ptr<OpenGL> openGL)
        : m_openGL(std::move(openGL))
    {
    }
    [[nodiscard]] bool isHardware() const override { return true; }
    [[nodiscard]] bool isLost() const override { return m_openGL->isLost(); }
    bool makeCurrent() override { return m_openGL->makeCurrent(); }
    [[nodiscard]] void* function(const char* name) const override { return m_openGL->function(name); }
    [[nodiscard]] DisplayConnection display() const override { return m_openGL->display(); }
    bool renderToMemory(const PixelTarget& target, const Draw& draw) override
    {
        return m_openGL->renderToMemory(target, draw);
    }
    void prepare(QWindow& window) override { m_openGL->prepare(window); }
    [[nodiscard]] std::unique_ptr<Renderer> makeRenderer(Surface& surface) override
    {
        return m_openGL->makeRenderer(surface);
    }

private:
    std::shared_ptr<OpenGL> m_openGL;
};

} // namespace kestro
