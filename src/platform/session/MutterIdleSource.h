#pragma once

#include "platform/session/BusObject.h"
#include "platform/session/IdleSource.h"

#include <QTimer>

#include <functional>

namespace kestro {

/// The idle monitor of GNOME's and Cinnamon's compositors, a service on the session bus, under Wayland and
/// X11 alike. Who asked the session to be left awake counts there as activity. A service that restarts is
/// asked again; one that does not answer, or stays away, is lost. Main thread.
class MutterIdleSource final : public IdleSource {
public:
    /// The services there are; the interface is called as the service.
    [[nodiscard]] static BusAddress mutter();
    [[nodiscard]] static BusAddress muffin();

    /// How long a service that went may stay away.
    static constexpr std::chrono::seconds restartPatience{10};

    MutterIdleSource(const QDBusConnection& bus, const BusAddress& service,
                     std::chrono::milliseconds patience = restartPatience);
    ~MutterIdleSource() override;
    MutterIdleSource(const MutterIdleSource&) = delete;
    MutterIdleSource& operator=(const MutterIdleSource&) = delete;

    [[nodiscard]] QString name() const override { return m_name; }
    void watch(std::chrono::milliseconds span, Handlers handlers) override;

private:
    void ask(const QString& method, const QVariantList& arguments,
             std::function<void(const QVariant&)> onAnswer);
    void remove(uint& watchId);
    void ownerChanged(bool isThere);
    void begin();
    void awaitActivity();
    void fired(uint watchId);
    void becomeIdle();
    void becomeActive();
    void lose();

    QString m_name;
    BusObject m_monitor;
    QTimer m_away; ///< runs while the service is gone
    Handlers m_handlers;
    std::chrono::milliseconds m_span{0}; ///< 0 while nothing is watched
    uint m_idleWatch = 0;                ///< 0 for none, as the service numbers them
    uint m_activeWatch = 0;
    int m_round = 0;       ///< one a registration: answers to an earlier one come too late
    bool m_isIdle = false; ///< what was told last
};

} // namespace kestro
