#include "platform/session/WaylandIdleProtocol.h"

#include "platform/session/WaylandConnection.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>
#include <wayland-client.h>
#include <wayland-ext-idle-notify.h>
#include <wayland-kwin-idle.h>

namespace kestro {

namespace {

using std::chrono::milliseconds;

std::uint32_t wireSpan(milliseconds span)
{
    return static_cast<std::uint32_t>(
        std::clamp<milliseconds::rep>(span.count(), 1, std::numeric_limits<std::uint32_t>::max()));
}

/// A notice of one of the protocols, whose objects differ in nothing but their names.
template <typename Object, typename ObjectListener, auto addListener, auto destroy>
class Notice final : public WaylandIdleNotice {
public:
    Notice(Object* object, WaylandIdleProtocol::Handler handler)
        : m_object(object)
        , m_handler(std::move(handler))
    {
        addListener(object, &calls, this);
    }
    ~Notice() override { destroy(m_object); }
    Notice(const Notice&) = delete;
    Notice& operator=(const Notice&) = delete;

private:
    static void tell(void* data, bool isIdle) { static_cast<Notice*>(data)->m_handler(isIdle); }
    static void idled(void* data, Object*) { tell(data, true); }
    static void resumed(void* data, Object*) { tell(data, false); }
    static constexpr ObjectListener calls{idled, resumed};

    Object* m_object;
    WaylandIdleProtocol::Handler m_handler;
};

class ExtIdleNotify final : public WaylandIdleProtocol {
public:
    explicit ExtIdleNotify(ext_idle_notifier_v1* notifier)
        : m_notifier(notifier)
    {
    }
    ~ExtIdleNotify() override { ext_idle_notifier_v1_destroy(m_notifier); }
    ExtIdleNotify(const ExtIdleNotify&) = delete;
    ExtIdleNotify& operator=(const ExtIdleNotify&) = delete;

    [[nodiscard]] QString name() const override { return QStringLiteral("ext-idle-notify-v1"); }
    [[nodiscard]] std::unique_ptr<WaylandIdleNotice> notice(wl_seat* seat, milliseconds span, Counts counts,
                                                            Handler handler) override
    {
        auto* const object = counts == Counts::Everything ? everything(seat, span) : input(seat, span);
        if (!object) return nullptr;
        using Object = Notice<ext_idle_notification_v1, ext_idle_notification_v1_listener,
                              ext_idle_notification_v1_add_listener, ext_idle_notification_v1_destroy>;
        return std::make_unique<Object>(object, std::move(handler));
    }

private:
    ext_idle_notification_v1* everything(wl_seat* seat, milliseconds span)
    {
        return ext_idle_notifier_v1_get_idle_notification(m_notifier, wireSpan(span), seat);
    }
    ext_idle_notification_v1* input(wl_seat* seat, milliseconds span)
    {
        if (ext_idle_notifier_v1_get_version(m_notifier) <
            EXT_IDLE_NOTIFIER_V1_GET_INPUT_IDLE_NOTIFICATION_SINCE_VERSION)
            return nullptr;
        return ext_idle_notifier_v1_get_input_idle_notification(m_notifier, wireSpan(span), seat);
    }

    ext_idle_notifier_v1* m_notifier;
};

class KwinIdle final : public WaylandIdleProtocol {
public:
    explicit KwinIdle(org_kde_kwin_idle* idle)
        : m_idle(idle)
    {
    }
    ~KwinIdle() override { org_kde_kwin_idle_destroy(m_idle); }
    KwinIdle(const KwinIdle&) = delete;
    KwinIdle& operator=(const KwinIdle&) = delete;

    [[nodiscard]] QString name() const override { return QStringLiteral("org_kde_kwin_idle"); }
    [[nodiscard]] std::unique_ptr<WaylandIdleNotice> notice(wl_seat* seat, milliseconds span, Counts counts,
                                                            Handler handler) override
    {
        if (counts == Counts::InputAlone) return nullptr;
        using Object = Notice<org_kde_kwin_idle_timeout, org_kde_kwin_idle_timeout_listener,
                              org_kde_kwin_idle_timeout_add_listener, org_kde_kwin_idle_timeout_release>;
        return std::make_unique<Object>(org_kde_kwin_idle_get_idle_timeout(m_idle, seat, wireSpan(span)),
                                        std::move(handler));
    }

private:
    org_kde_kwin_idle* m_idle;
};

} // namespace

std::unique_ptr<WaylandIdleProtocol> WaylandIdleProtocol::find(const WaylandConnection& connection)
{
    if (const auto* const global = connection.find(ext_idle_notifier_v1_interface.name)) {
        auto* const bound = connection.bind(*global, ext_idle_notifier_v1_interface);
        return std::make_unique<ExtIdleNotify>(reinterpret_cast<ext_idle_notifier_v1*>(bound));
    }
    if (const auto* const global = connection.find(org_kde_kwin_idle_interface.name)) {
        auto* const bound = connection.bind(*global, org_kde_kwin_idle_interface);
        return std::make_unique<KwinIdle>(reinterpret_cast<org_kde_kwin_idle*>(bound));
    }
    return nullptr;
}

} // namespace kestro
