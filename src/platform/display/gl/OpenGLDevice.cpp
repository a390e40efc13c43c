#include "platform/display/gl/OpenGLDevice.h"

#include "platform/base/Log.h"
#include "platform/display/gl/GlxDriver.h"
#include "platform/display/gl/OpenGLRenderer.h"
#include "platform/display/gl/OpenGLTexture.h"
#include "platform/display/gl/QuadProgram.h"
#include "platform/display/surface/wayland/WaylandObjects.h"
#include "platform/display/view/Layer.h"

#include <QGuiApplication>
#include <QOpenGLFunctions>
#include <QWindow>

#include <algorithm>

namespace kestro {

namespace {

/// What any graphics card of the last twenty years gives, so that drivers emulate nothing. A context that
/// tells when it is lost, where there are such.
QSurfaceFormat wantedFormat()
{
    QSurfaceFormat format;
    format.setAlphaBufferSize(0);
    format.setDepthBufferSize(0);
    format.setStencilBufferSize(0);
    format.setOption(QSurfaceFormat::ResetNotification);
    return format;
}

} // namespace

bool isSoftwareOpenGL(const QByteArray& rendererName)
{
    const QByteArray name = rendererName.toLower();
    const auto names = {"llvmpipe", "softpipe", "swrast", "software rasterizer"};
    return std::ranges::any_of(names, [&name](const char* part) { return name.contains(part); });
}

Result<std::shared_ptr<OpenGLDevice>> OpenGLDevice::create()
{
    std::shared_ptr<OpenGLDevice> device(new OpenGLDevice);
    if (const auto opened = device->open(); !opened) return opened.failure();
    return device;
}

Result<void> OpenGLDevice::open()
{
    const Error noContext{QStringLiteral("no context can be made")};
    const Error tooPoor{QStringLiteral("it lacks what is needed")};
    if (!hasGlxDriver()) return Error{QStringLiteral("the display has no driver for it")};
    m_context.setFormat(wantedFormat());
    m_offScreen.setFormat(wantedFormat());
    if (!m_context.create()) return noContext;
    m_offScreen.setFormat(m_context.format());
    m_offScreen.create();
    if (!m_offScreen.isValid() || !m_context.makeCurrent(&m_offScreen)) return noContext;
    QOpenGLFunctions& gl = functions();
    const auto* name = reinterpret_cast<const char*>(gl.glGetString(GL_RENDERER));
    m_isHardware = name && !isSoftwareOpenGL(name);
    gl.glGetIntegerv(GL_MAX_TEXTURE_SIZE, &m_mostTextureSide);
    m_canUploadParts = !m_context.isOpenGLES() || m_context.format().majorVersion() >= 3;
    if (!gl.hasOpenGLFeature(QOpenGLFunctions::Framebuffers)) return tooPoor;
    m_program = QuadProgram::create(gl);
    if (!m_program) return tooPoor;
    return {};
}

OpenGLDevice::~OpenGLDevice()
{
    if (m_program && makeCurrent()) m_program->free();
    m_context.doneCurrent();
}

bool OpenGLDevice::makeCurrent()
{
    const bool isCurrent = QOpenGLContext::currentContext() == &m_context;
    return isCurrent ? !m_isLost : makeCurrentOn(m_offScreen);
}

bool OpenGLDevice::makeCurrentOn(QSurface& surface)
{
    if (m_isLost) return false;
    if (m_context.makeCurrent(&surface)) return true;
    lose();
    return false;
}

void OpenGLDevice::lose()
{
    if (m_isLost) return;
    m_isLost = true;
    logLine(QStringLiteral("OpenGL was lost: drawing in software."));
}

void* OpenGLDevice::function(const char* name) const
{
    return reinterpret_cast<void*>(m_context.getProcAddress(name));
}

DisplayConnection OpenGLDevice::display() const
{
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return {.x11 = x11 ? x11->display() : nullptr, .wayland = waylandDisplay()};
}

bool OpenGLDevice::renderToMemory(const PixelTarget& target, const Draw& draw)
{
    if (!makeCurrent()) return false;
    OpenGLTexture texture(*this);
    const bool isDrawn = texture.makeTarget({target.width, target.height}) &&
                         texture.size() == QSize(target.width, target.height) && draw(texture.target());
    if (!isDrawn) return false;
    QImage pixels(target.pixels, target.width, target.height, target.stride, QImage::Format_RGB32);
    texture.readInto(pixels, pixels.rect());
    return true;
}

void OpenGLDevice::prepare(QWindow& window)
{
    QSurfaceFormat format = m_context.format();
    // Waiting for the display's refresh shows pictures whole. Where there are more displays one wait has to
    // do for all: each would make the others late.
    format.setSwapInterval(m_windows++ == 0 ? 1 : 0);
    window.setSurfaceType(QSurface::OpenGLSurface);
    window.setFormat(format);
}

std::unique_ptr<Renderer> OpenGLDevice::makeRenderer(Surface& surface)
{
    return std::make_unique<OpenGLRenderer>(shared_from_this(), surface);
}

} // namespace kestro
