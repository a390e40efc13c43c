#pragma once

#include <QByteArray>

#include <functional>
#include <initializer_list>
#include <memory>
#include <mpv/client.h>
#include <mutex>
#include <utility>
#include <vector>

struct mpv_render_context;

namespace kestro {

struct FramebufferTarget;
class OpenGL;
struct PixelTarget;
class ShownFrame;

/// One libmpv player with its renderer: with OpenGL, or in software. Nothing here waits for mpv's playing
/// thread: what is asked is answered by events. Owned by MpvPlayer; main thread. Destroying it frees mpv on
/// another thread. Tested by MpvMovieTest.
class MpvHandle final {
public:
    using Options = std::vector<std::pair<const char*, QByteArray>>;

    /// Null when mpv cannot be had. `openGL` is to draw the frames; null for software, which it falls back
    /// to. What it draws in software can be had of `shown` as well.
    [[nodiscard]] static std::unique_ptr<MpvHandle>
    create(const Options& options, std::shared_ptr<OpenGL> openGL, std::shared_ptr<ShownFrame> shown);
    /// mpv without a renderer; null when it cannot be had. Whoever asks frees it.
    [[nodiscard]] static mpv_handle* createRaw(const Options& options);
    ~MpvHandle();
    MpvHandle(const MpvHandle&) = delete;
    MpvHandle& operator=(const MpvHandle&) = delete;

    /// Called on any thread when there are events, or a frame, to look for; may only post.
    void setNotifier(std::function<void()> notifier);

    /// The next event, MPV_EVENT_NONE when there is none now. Valid until the next call.
    [[nodiscard]] const mpv_event& nextEvent();
    /// Whether the renderer has a frame that was not there at the last call.
    [[nodiscard]] bool takeNewFrame();

    /// The reply event carries `id`.
    void command(std::uint64_t id, std::initializer_list<const char*> words);
    void set(const char* property, const QByteArray& value, std::uint64_t id = 0);
    void observe(std::uint64_t id, const char* property, mpv_format format);
    void ask(std::uint64_t id, const char* property, mpv_format format);
    /// mpv itself, for what is not asked often.
    [[nodiscard]] mpv_handle* raw() const { return m_handle; }

    /// Draws the newest frame, stretched. False when it could not.
    bool render(const PixelTarget& target);
    [[nodiscard]] bool drawsWithOpenGL() const { return m_openGL != nullptr; }
    /// Where it draws with OpenGL, whose context is current: the same as above.
    bool renderWithOpenGL(const FramebufferTarget& target);
    /// Whether the OpenGL that it draws with was lost: it cannot draw any more.
    [[nodiscard]] bool isContextLost() const;
    /// Lets mpv go on without drawing the frame that waits.
    void skipFrame();

private:
    /// What mpv calls on threads of its own. Its lock is one more than mpv's, for what looks for races and
    /// knows nothing of those.
    class Notifier final {
    public:
        void set(std::function<void()> wake);
        void notify();

    private:
        std::mutex m_mutex;
        std::function<void()> m_wake;
    };

    MpvHandle() = default;
    [[nodiscard]] bool start(const Options& options, std::shared_ptr<OpenGL> openGL);
    void freeLater();
    void startOpenGL(std::shared_ptr<OpenGL> openGL);
    [[nodiscard]] bool startSoftware();
    void makeCurrent() const;

    mpv_handle* m_handle = nullptr;
    mpv_render_context* m_renderer = nullptr;
    std::shared_ptr<OpenGL> m_openGL;    ///< what the renderer draws with; shared as OpenGL says
    std::shared_ptr<ShownFrame> m_shown; ///< all drawing in software goes through it
    Notifier m_notifier;
};

} // namespace kestro
