#include "platform/display/gl/GlxDriver.h"

#include <QGuiApplication>

#include <GL/glx.h>

namespace kestro {

namespace {

bool isGlxTaken()
{
    const QByteArray wish = qgetenv("QT_XCB_GL_INTEGRATION");
    return wish.isEmpty() || wish == "xcb_glx";
}

} // namespace

bool hasGlxDriver()
{
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    Display* const display = x11 && isGlxTaken() ? x11->display() : nullptr;
    if (!display || !glXQueryExtension(display, nullptr, nullptr)) return true;
    int count = 0;
    GLXFBConfig* const configs = glXGetFBConfigs(display, DefaultScreen(display), &count);
    if (configs) XFree(configs);
    return count > 0;
}

} // namespace kestro
