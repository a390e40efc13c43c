#pragma once

#include <QByteArray>
#include <QList>
#include <QSocketNotifier>
#include <QTemporaryDir>

#include <cstdint>
#include <memory>

struct wl_client;
struct wl_display;
struct wl_global;
struct wl_resource;

namespace kestro {

/// A Wayland compositor that has seats and ext-idle-notify, and no picture. Its person does what a test says.
/// It lives in the test's event loop, so that whoever waits for it has to do so on another thread.
class FakeCompositor final {
public:
    enum class Kind { Everything, InputAlone };

    /// `version` of ext-idle-notify; 0 for none.
    explicit FakeCompositor(int version, int seats = 1);
    ~FakeCompositor();
    FakeCompositor(const FakeCompositor&) = delete;
    FakeCompositor& operator=(const FakeCompositor&) = delete;

    /// As WAYLAND_DISPLAY has it.
    [[nodiscard]] QByteArray display() const { return m_folder.filePath(QStringLiteral("socket")).toUtf8(); }

    void addSeat();
    void removeLastSeat();
    /// Tells the notices of that kind at a seat, as far as they have not heard it.
    void tellIdled(Kind kind, int seat = 0) { tell(kind, seat, true); }
    void tellResumed(Kind kind, int seat = 0) { tell(kind, seat, false); }

    /// The spans of the notices of that kind that there are, in milliseconds.
    [[nodiscard]] QList<std::uint32_t> spans(Kind kind) const;
    /// Of all notices that anybody ever asked for.
    [[nodiscard]] int asked() const { return m_asked; }

private:
    struct Notice {
        wl_resource* resource;
        Kind kind;
        int seat;
        std::uint32_t span;
        bool isIdle;
    };
    struct Calls; ///< what the library calls
    void turn();
    void tell(Kind kind, int seat, bool isIdle);

    QTemporaryDir m_folder;
    wl_display* m_display;
    QList<wl_global*> m_seats;
    QList<Notice> m_notices;
    int m_asked = 0;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace kestro
