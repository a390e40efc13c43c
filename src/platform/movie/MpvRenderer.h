#pragma once

#include <QByteArray>

#include <mpv/render_gl.h>
#include <vector>

struct mpv_handle;
struct mpv_render_context;

namespace kestro {

struct DisplayConnection;
struct FramebufferTarget;
class OpenGL;

// What is done with mpv's renderers. Main thread, but for skipFrameOf with one that draws in software.
// Tested by MpvMovieTest.

/// A renderer that draws with OpenGL, whose context is current; null when mpv does not take that context.
[[nodiscard]] mpv_render_context* makeOpenGLRenderer(mpv_handle* handle, OpenGL& openGL);

/// What such a renderer is made with: the display is told, so that what was decoded on the card stays there.
/// Ends with MPV_RENDER_PARAM_INVALID, and points at `init`.
[[nodiscard]] std::vector<mpv_render_param> openGLParameters(mpv_opengl_init_params& init,
                                                             const DisplayConnection& display);

/// Draws the newest frame, stretched, with the OpenGL that is current. False when it could not.
[[nodiscard]] bool renderFrame(mpv_render_context* renderer, const FramebufferTarget& target);

/// Lets mpv go on without drawing the frame that waits.
void skipFrameOf(mpv_render_context* renderer);

/// Frees both. The renderer must go first. Freeing it while a frame waits to be drawn would block a fifth
/// of a second, so those that are still on their way are taken and dropped.
void freePlayer(mpv_handle* handle, mpv_render_context* renderer);

/// Whether that version, as the property "mpv-version" names it, forgets to free a fence for each frame.
[[nodiscard]] bool leaksFences(const QByteArray& version);

} // namespace kestro
