#include "platform/movie/CardDrawing.h"

#include "platform/display/gl/OpenGL.h"
#include "platform/movie/MpvHandle.h"
#include "platform/movie/MpvOptions.h"
#include "platform/movie/MpvRenderer.h"

namespace kestro {

bool drawsMovies(OpenGL& openGL)
{
    MpvHandle::Options options = plainOptions();
    options.emplace_back("gpu-hwdec-interop", "no"); // whether it draws, whoever decodes
    mpv_handle* const handle = MpvHandle::createRaw(options);
    if (!handle) return false;
    mpv_render_context* const renderer = openGL.makeCurrent() ? makeOpenGLRenderer(handle, openGL) : nullptr;
    freePlayer(handle, renderer);
    return renderer;
}

} // namespace kestro
