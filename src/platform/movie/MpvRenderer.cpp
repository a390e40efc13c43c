#include "platform/movie/MpvRenderer.h"

#include "platform/display/gl/OpenGL.h"
#include "platform/display/view/Layer.h"

#include <chrono>
#include <cstring>
#include <mpv/client.h>
#include <mpv/render_gl.h>
#include <thread>

namespace kestro {

namespace {

/// How mpv finds the functions of OpenGL while its renderer is made.
struct Functions {
    OpenGL& openGL;
    bool hasFences;
};

/// Releases that refuse OpenGL without this function go on without the fence that it does not make.
void* makeNoFence(unsigned /*condition*/, unsigned /*flags*/)
{
    return nullptr;
}

void* findFunction(void* context, const char* name)
{
    const auto& functions = *static_cast<const Functions*>(context);
    if (!functions.hasFences && std::strcmp(name, "glFenceSync") == 0)
        return reinterpret_cast<void*>(makeNoFence);
    return functions.openGL.function(name);
}

QByteArray versionOf(mpv_handle* handle)
{
    char* const text = mpv_get_property_string(handle, "mpv-version");
    QByteArray version(text);
    mpv_free(text);
    return version;
}

} // namespace

bool leaksFences(const QByteArray& version)
{
    return version.contains(" 0.40.") || version.contains(" 0.41.") || version.contains(" v0.40.") ||
           version.contains(" v0.41.");
}

std::vector<mpv_render_param> openGLParameters(mpv_opengl_init_params& init, const DisplayConnection& display)
{
    std::vector<mpv_render_param> params{
        {MPV_RENDER_PARAM_API_TYPE, const_cast<char*>(MPV_RENDER_API_TYPE_OPENGL)},
        {MPV_RENDER_PARAM_OPENGL_INIT_PARAMS, &init},
    };
    if (display.x11) params.push_back({MPV_RENDER_PARAM_X11_DISPLAY, display.x11});
    if (display.wayland) params.push_back({MPV_RENDER_PARAM_WL_DISPLAY, display.wayland});
    params.push_back({MPV_RENDER_PARAM_INVALID, nullptr});
    return params;
}

mpv_render_context* makeOpenGLRenderer(mpv_handle* handle, OpenGL& openGL)
{
    Functions functions{openGL, !leaksFences(versionOf(handle))};
    // Only a fence would keep the processor from decoding into memory that the card still reads.
    if (!functions.hasFences) mpv_set_property_string(handle, "vd-lavc-dr", "no");
    mpv_opengl_init_params init{findFunction, &functions};
    std::vector<mpv_render_param> params = openGLParameters(init, openGL.display());
    mpv_render_context* renderer = nullptr;
    return mpv_render_context_create(&renderer, handle, params.data()) >= 0 ? renderer : nullptr;
}

bool renderFrame(mpv_render_context* renderer, const FramebufferTarget& target)
{
    mpv_opengl_fbo card{static_cast<int>(target.framebuffer), target.width, target.height, 0};
    int off = 0;
    mpv_render_param params[] = {
        {MPV_RENDER_PARAM_OPENGL_FBO, &card},
        {MPV_RENDER_PARAM_FLIP_Y, &off},
        {MPV_RENDER_PARAM_BLOCK_FOR_TARGET_TIME, &off},
        {MPV_RENDER_PARAM_INVALID, nullptr},
    };
    return mpv_render_context_render(renderer, params) >= 0;
}

void skipFrameOf(mpv_render_context* renderer)
{
    int on = 1;
    int off = 0;
    mpv_render_param params[] = {
        {MPV_RENDER_PARAM_SKIP_RENDERING, &on},
        {MPV_RENDER_PARAM_BLOCK_FOR_TARGET_TIME, &off},
        {MPV_RENDER_PARAM_INVALID, nullptr},
    };
    mpv_render_context_render(renderer, params);
}

void freePlayer(mpv_handle* handle, mpv_render_context* renderer)
{
    if (renderer) {
        mpv_command_string(handle, "stop");
        for (int round = 0; round < 5; ++round) {
            skipFrameOf(renderer);
            std::this_thread::sleep_for(std::chrono::milliseconds(4));
        }
        mpv_render_context_free(renderer);
    }
    mpv_terminate_destroy(handle);
}

} // namespace kestro
