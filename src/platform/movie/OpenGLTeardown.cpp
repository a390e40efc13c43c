#include "platform/movie/OpenGLTeardown.h"

#include "platform/base/PostTo.h"
#include "platform/display/gl/OpenGL.h"
#include "platform/movie/MovieTeardown.h"
#include "platform/movie/MpvRenderer.h"

#include <QCoreApplication>

#include <chrono>
#include <mpv/client.h>
#include <mpv/render.h>
#include <set>
#include <utility>

namespace kestro {

// A movie stops within a few milliseconds; one that hangs on a server is freed all the same.
static constexpr std::chrono::milliseconds longestStop{250};

/// Those that are under way.
static std::set<OpenGLTeardown*>& pending()
{
    static auto& all = *new std::set<OpenGLTeardown*>;
    return all;
}

/// Contexts go with the application.
static void finishWithApplication()
{
    static const QCoreApplication* known = nullptr;
    const QCoreApplication* const before = std::exchange(known, QCoreApplication::instance());
    if (before != known) qAddPostRoutine(OpenGLTeardown::finishAll);
}

void OpenGLTeardown::begin(mpv_handle* handle, mpv_render_context* renderer, std::shared_ptr<OpenGL> openGL)
{
    if (!QCoreApplication::instance()) return; // the process ends: its context is gone already
    finishWithApplication();
    pending().insert(new OpenGLTeardown(handle, renderer, std::move(openGL)));
}

OpenGLTeardown::OpenGLTeardown(mpv_handle* handle, mpv_render_context* renderer,
                               std::shared_ptr<OpenGL> openGL)
    : m_handle(handle)
    , m_renderer(renderer)
    , m_openGL(std::move(openGL))
{
    mpv_set_wakeup_callback(m_handle, notify, this);
    mpv_render_context_set_update_callback(m_renderer, notify, this);
    const char* stop[] = {"stop", nullptr};
    mpv_command_async(m_handle, 0, stop);
    m_bound.setSingleShot(true);
    m_bound.callOnTimeout(this, [this] { finish(); });
    m_bound.start(longestStop);
}

/// On any thread of mpv's.
void OpenGLTeardown::notify(void* self)
{
    auto* const teardown = static_cast<OpenGLTeardown*>(self);
    if (teardown->m_woken.exchange(true)) return;
    postTo(*teardown, [teardown] { teardown->look(); });
}

void OpenGLTeardown::look()
{
    m_woken = false;
    if (isStopped()) return finish();
    static_cast<void>(m_openGL->makeCurrent());
    skipFrameOf(m_renderer);
}

bool OpenGLTeardown::isStopped()
{
    while (true) {
        const mpv_event& event = *mpv_wait_event(m_handle, 0);
        if (event.event_id == MPV_EVENT_NONE) return false;
        if (event.event_id == MPV_EVENT_IDLE) return true; // nothing is loaded, and no frame is left
    }
}

void OpenGLTeardown::finish()
{
    pending().erase(this);
    mpv_set_wakeup_callback(m_handle, nullptr, nullptr);
    mpv_render_context_set_update_callback(m_renderer, nullptr, nullptr);
    static_cast<void>(m_openGL->makeCurrent());
    skipFrameOf(m_renderer);
    mpv_render_context_free(m_renderer);
    tearDownLater([handle = m_handle] { freePlayer(handle, nullptr); });
    delete this;
}

void OpenGLTeardown::finishAll()
{
    while (!pending().empty())
        (*pending().begin())->finish();
}

} // namespace kestro
