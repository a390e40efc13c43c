#pragma once

#include <QObject>
#include <QTimer>

#include <atomic>
#include <memory>

struct mpv_handle;
struct mpv_render_context;

namespace kestro {

class OpenGL;

/// Ends a player that draws with OpenGL. Its renderer can only be freed where the context is, and would hold
/// that thread up while a frame waits to be drawn: so the movie is stopped first, and the frames that
/// come till then are dropped. The rest is left to a thread. Owns itself; main thread.
/// Tested by OpenGLMovieTest.
class OpenGLTeardown final : public QObject {
public:
    /// Takes the player over. Nobody else may call it any more.
    static void begin(mpv_handle* handle, mpv_render_context* renderer, std::shared_ptr<OpenGL> openGL);
    /// Ends at once those that are under way.
    static void finishAll();

private:
    OpenGLTeardown(mpv_handle* handle, mpv_render_context* renderer, std::shared_ptr<OpenGL> openGL);

    static void notify(void* self);
    void look();
    [[nodiscard]] bool isStopped();
    void finish();

    mpv_handle* m_handle;
    mpv_render_context* m_renderer;
    std::shared_ptr<OpenGL> m_openGL; ///< shared as OpenGL says
    QTimer m_bound;
    std::atomic<bool> m_woken{false};
};

} // namespace kestro
