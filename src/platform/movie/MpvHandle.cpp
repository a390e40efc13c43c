#include "platform/movie/MpvHandle.h"

#include "platform/base/Log.h"
#include "platform/display/gl/OpenGL.h"
#include "platform/display/view/Layer.h"
#include "platform/movie/DecoderMemory.h"
#include "platform/movie/MovieTeardown.h"
#include "platform/movie/MpvRenderer.h"
#include "platform/movie/OpenGLTeardown.h"
#include "platform/movie/ShownFrame.h"

#include <clocale>
#include <mpv/render.h>

namespace kestro {

std::unique_ptr<MpvHandle> MpvHandle::create(const Options& options, std::shared_ptr<OpenGL> openGL,
                                             std::shared_ptr<ShownFrame> shown)
{
    auto handle = std::unique_ptr<MpvHandle>(new MpvHandle);
    handle->m_shown = std::move(shown);
    if (!handle->start(options, std::move(openGL))) return nullptr;
    return handle;
}

/// mpv's own scripts take a thread each and have nothing to do here. Every release has others, and refuses
/// the names that it does not know.
static void leaveScriptsOut(mpv_handle* handle)
{
    for (const char* script : {"load-stats-overlay", "load-osd-console", "load-console", "load-auto-profiles",
                               "load-select", "load-positioning", "load-commands"})
        mpv_set_option_string(handle, script, "no");
}

mpv_handle* MpvHandle::createRaw(const Options& options)
{
    setlocale(LC_NUMERIC,
              "C"); // mpv refuses to be made under another; the application object sets the user's
    prepareLibav();
    mpv_handle* const handle = mpv_create();
    if (!handle) return nullptr;
    for (const auto& [name, value] : options) {
        if (mpv_set_option_string(handle, name, value.constData()) < 0)
            logLine(
                QStringLiteral("mpv does not take %1=%2").arg(QLatin1String(name), QString::fromUtf8(value)));
    }
    leaveScriptsOut(handle);
    if (mpv_initialize(handle) >= 0) return handle;
    mpv_terminate_destroy(handle);
    return nullptr;
}

bool MpvHandle::start(const Options& options, std::shared_ptr<OpenGL> openGL)
{
    m_handle = createRaw(options);
    if (!m_handle) return false;
    if (openGL) startOpenGL(std::move(openGL));
    return m_renderer || startSoftware();
}

void MpvHandle::startOpenGL(std::shared_ptr<OpenGL> openGL)
{
    if (!openGL->makeCurrent()) return;
    m_renderer = makeOpenGLRenderer(m_handle, *openGL);
    if (!m_renderer)
        return logLine(QStringLiteral("libmpv refuses this OpenGL: movies are drawn in software."));
    m_openGL = std::move(openGL);
}

bool MpvHandle::startSoftware()
{
    mpv_render_param params[] = {
        {MPV_RENDER_PARAM_API_TYPE, const_cast<char*>(MPV_RENDER_API_TYPE_SW)},
        {MPV_RENDER_PARAM_INVALID, nullptr},
    };
    if (mpv_render_context_create(&m_renderer, m_handle, params) < 0) return false;
    m_shown->setRenderer(m_renderer);
    return true;
}

MpvHandle::~MpvHandle()
{
    if (!m_handle) return;
    setNotifier({});
    m_shown->takeBack(m_renderer);
    if (m_openGL)
        OpenGLTeardown::begin(m_handle, m_renderer, std::move(m_openGL));
    else
        freeLater();
}

void MpvHandle::freeLater()
{
    command(0, {"stop"}); // it may have to wait its turn, and is not to be heard meanwhile
    tearDownLater([handle = m_handle, renderer = m_renderer] { freePlayer(handle, renderer); });
}

void MpvHandle::setNotifier(std::function<void()> notifier)
{
    const auto call = [](void* notice) { static_cast<Notifier*>(notice)->notify(); };
    const bool isSet = notifier && m_renderer;
    m_notifier.set(std::move(notifier));
    // Taking a callback away waits for one that is running.
    mpv_set_wakeup_callback(m_handle, isSet ? +call : nullptr, &m_notifier);
    if (m_renderer) mpv_render_context_set_update_callback(m_renderer, isSet ? +call : nullptr, &m_notifier);
}

void MpvHandle::Notifier::set(std::function<void()> wake)
{
    const std::lock_guard lock(m_mutex);
    m_wake = std::move(wake);
}

void MpvHandle::Notifier::notify()
{
    const std::lock_guard lock(m_mutex);
    if (m_wake) m_wake();
}

const mpv_event& MpvHandle::nextEvent()
{
    return *mpv_wait_event(m_handle, 0);
}

/// All that is asked of a renderer may use the context.
void MpvHandle::makeCurrent() const
{
    if (m_openGL) static_cast<void>(m_openGL->makeCurrent());
}

bool MpvHandle::isContextLost() const
{
    return m_openGL && m_openGL->isLost();
}

bool MpvHandle::takeNewFrame()
{
    if (!m_openGL) return m_shown->takeNew();
    makeCurrent();
    return mpv_render_context_update(m_renderer) & MPV_RENDER_UPDATE_FRAME;
}

void MpvHandle::command(std::uint64_t id, std::initializer_list<const char*> words)
{
    std::vector<const char*> list(words);
    list.push_back(nullptr);
    mpv_command_async(m_handle, id, list.data());
}

void MpvHandle::set(const char* property, const QByteArray& value, std::uint64_t id)
{
    const char* text = value.constData();
    mpv_set_property_async(m_handle, id, property, MPV_FORMAT_STRING, &text);
}

void MpvHandle::observe(std::uint64_t id, const char* property, mpv_format format)
{
    mpv_observe_property(m_handle, id, property, format);
}

void MpvHandle::ask(std::uint64_t id, const char* property, mpv_format format)
{
    mpv_get_property_async(m_handle, id, property, format);
}

bool MpvHandle::renderWithOpenGL(const FramebufferTarget& target)
{
    return m_openGL && !m_openGL->isLost() && renderFrame(m_renderer, target);
}

bool MpvHandle::render(const PixelTarget& target)
{
    if (m_openGL)
        return m_openGL->renderToMemory(target, [this](const auto& card) { return renderWithOpenGL(card); });
    return m_shown->draw(target);
}

void MpvHandle::skipFrame()
{
    if (!m_openGL) return m_shown->skip();
    makeCurrent();
    skipFrameOf(m_renderer);
}

} // namespace kestro
