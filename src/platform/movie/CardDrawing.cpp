#include "platform/movie/CardDrawing.h"

#include "platform/display/gl/OpenGL.h"
#include "platform/movie/MpvRenderer.h"

#include <clocale>
#include <mpv/client.h>

namespace kestro {

bool drawsMovies(OpenGL& openGL)
{
    setlocale(LC_NUMERIC, "C"); // mpv refuses to be made under another
    mpv_handle* const handle = openGL.makeCurrent() ? mpv_create() : nullptr;
    if (!handle) return false;
    for (const char* left : {"config", "load-scripts", "osc", "ytdl", "gpu-hwdec-interop"})
        mpv_set_option_string(handle, left, "no");
    mpv_set_option_string(handle, "vo", "libmpv");
    const bool isReady = mpv_initialize(handle) >= 0;
    mpv_render_context* const renderer = isReady ? makeOpenGLRenderer(handle, openGL) : nullptr;
    freePlayer(handle, renderer);
    return renderer;
}

} // namespace kestro
