#pragma once

#include "platform/session/BusObject.h"
#include "platform/session/KeptFact.h"
#include "platform/session/ScreenSaverCookies.h"
#include "platform/session/ScreenSaverObject.h"

#include <optional>

namespace kestro {

class Clock;
class LogindSession;
class Random;

/// The service org.freedesktop.ScreenSaver, at both paths that programs know, as long as no other program has
/// that name: it lets another one take it, and takes it back when that goes. What programs ask of it is the
/// fact: an inhibition ends when it is given back, when its caller leaves the bus and when the name goes to
/// another. Main thread.
class ScreenSaverService final : public KeptFact {
public:
    /// What others may ask for. Those that are not set do nothing.
    struct Handlers {
        std::function<void(bool isShown)> onShow; ///< show the saver, or end it
        std::function<void()> onActivity;         ///< as if the person had been there
        std::function<double()> idleSeconds;      ///< for how long there was no input
    };

    ScreenSaverService(const QDBusConnection& bus, LogindSession& session, Random& random,
                       const Clock& clock);
    ~ScreenSaverService() override;

    void setHandlers(Handlers handlers) { m_handlers = std::move(handlers); }
    /// To be told whenever the saver is shown and when it is gone: programs ask, and hear of it.
    void setActive(bool isActive);
    /// Whether the name is ours now.
    [[nodiscard]] bool isOwner() const { return m_isOwner; }

    /// Answers at once: what it knows is all there is.
    void ask(std::function<void()> onAnswer) override;

    // What the object on the bus is asked for; `caller` is a connection's unique name.
    [[nodiscard]] std::optional<std::uint32_t> inhibit(const QString& caller, const QString& application,
                                                       const QString& reason);
    [[nodiscard]] bool giveBack(const QString& caller, std::uint32_t cookie);
    [[nodiscard]] bool isActive() const { return m_activeSince.has_value(); }
    bool show(bool isShown);
    void lock();
    void simulateActivity();
    [[nodiscard]] std::uint32_t idleSeconds() const;
    [[nodiscard]] std::uint32_t activeSeconds() const;

private:
    void askForTheName();
    void setOwner(bool isOwner);
    void watch(const QString& caller);
    void callerLeft(const QString& caller);

    LogindSession& m_session;
    const Clock& m_clock;
    Handlers m_handlers;
    ScreenSaverCookies m_cookies;
    std::optional<double> m_activeSince;
    bool m_isOwner = false;
    QDBusServiceWatcher m_callers;
    BusObject m_daemon;
    ScreenSaverObject m_object;
};

} // namespace kestro
