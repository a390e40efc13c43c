#include "platform/movie/MpvHandle.h"

#include "platform/base/Log.h"
#include "platform/display/Layer.h"
#include "platform/movie/MovieTeardown.h"

#include <chrono>
#include <clocale>
#include <mpv/render.h>
#include <thread>

namespace kestro {

std::unique_ptr<MpvHandle> MpvHandle::create(const Options& options)
{
    auto handle = std::unique_ptr<MpvHandle>(new MpvHandle);
    if (!handle->start(options)) return nullptr;
    return handle;
}

bool MpvHandle::start(const Options& options)
{
    setlocale(LC_NUMERIC,
              "C"); // mpv refuses to be made under another; the application object sets the user's
    m_handle = mpv_create();
    if (!m_handle) return false;
    for (const auto& [name, value] : options) {
        if (mpv_set_option_string(m_handle, name, value.constData()) < 0)
            logLine(
                QStringLiteral("mpv does not take %1=%2").arg(QLatin1String(name), QString::fromUtf8(value)));
    }
    if (mpv_initialize(m_handle) < 0) return false;
    mpv_render_param params[] = {
        {MPV_RENDER_PARAM_API_TYPE, const_cast<char*>(MPV_RENDER_API_TYPE_SW)},
        {MPV_RENDER_PARAM_INVALID, nullptr},
    };
    return mpv_render_context_create(&m_renderer, m_handle, params) >= 0;
}

static void skipRendering(mpv_render_context* renderer)
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

/// The renderer must go first. Freeing it while a picture waits to be drawn would block a fifth of a second,
/// so those that are still on their way are taken and dropped.
static void freePlayer(mpv_handle* handle, mpv_render_context* renderer)
{
    if (renderer) {
        mpv_command_string(handle, "stop");
        for (int round = 0; round < 5; ++round) {
            skipRendering(renderer);
            std::this_thread::sleep_for(std::chrono::milliseconds(4));
        }
        mpv_render_context_free(renderer);
    }
    mpv_terminate_destroy(handle);
}

MpvHandle::~MpvHandle()
{
    if (!m_handle) return;
    setNotifier({});
    tearDownLater([handle = m_handle, renderer = m_renderer] { freePlayer(handle, renderer); });
}

static void notify(void* notifier)
{
    (*static_cast<std::function<void()>*>(notifier))();
}

void MpvHandle::setNotifier(std::function<void()> notifier)
{
    // Taking a callback away waits for one that is running, so the function before is free to go after that.
    mpv_set_wakeup_callback(m_handle, nullptr, nullptr);
    if (m_renderer) mpv_render_context_set_update_callback(m_renderer, nullptr, nullptr);
    m_notifier.reset();
    if (!notifier || !m_renderer) return;
    m_notifier = std::make_unique<std::function<void()>>(std::move(notifier));
    mpv_set_wakeup_callback(m_handle, notify, m_notifier.get());
    mpv_render_context_set_update_callback(m_renderer, notify, m_notifier.get());
}

const mpv_event& MpvHandle::nextEvent()
{
    return *mpv_wait_event(m_handle, 0);
}

bool MpvHandle::takeNewPicture()
{
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

bool MpvHandle::render(const PixelTarget& target)
{
    int size[2] = {target.width, target.height};
    auto stride = static_cast<std::size_t>(target.stride);
    int off = 0;
    mpv_render_param params[] = {
        {MPV_RENDER_PARAM_SW_SIZE, size},
        {MPV_RENDER_PARAM_SW_FORMAT, const_cast<char*>("bgr0")},
        {MPV_RENDER_PARAM_SW_STRIDE, &stride},
        {MPV_RENDER_PARAM_SW_POINTER, target.pixels},
        {MPV_RENDER_PARAM_BLOCK_FOR_TARGET_TIME, &off},
        {MPV_RENDER_PARAM_INVALID, nullptr},
    };
    return mpv_render_context_render(m_renderer, params) >= 0;
}

void MpvHandle::skipPicture()
{
    skipRendering(m_renderer);
}

} // namespace kestro
