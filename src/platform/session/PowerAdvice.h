#pragma once

#include "platform/session/PowerRule.h"

#include <functional>
#include <memory>

class QDBusConnection;

namespace kestro {

class DetachedTask;
class PowerWatch;

/// What the person's rule wants to be shown, in view of what feeds the machine now. It is to play until a
/// service says otherwise; the bus is connected to on a thread that is left behind where that hangs. Owned by
/// the program that shows a saver. Main thread.
class PowerAdvice final {
public:
    /// `reason` as PowerRule::reason has it.
    using Handler = std::function<void(PowerChoice choice, const QString& reason)>;

    /// `connect`, called on that thread, connects to the system's bus. `onChange` is called from the event
    /// loop with what is wanted from now on, each time that becomes something else.
    PowerAdvice(const PowerRule& rule, std::function<QDBusConnection()> connect, Handler onChange);
    ~PowerAdvice();
    PowerAdvice(const PowerAdvice&) = delete;
    PowerAdvice& operator=(const PowerAdvice&) = delete;

    /// What connects to the bus that this process finds.
    [[nodiscard]] static std::function<QDBusConnection()> systemBus();

private:
    void watch(const QDBusConnection& bus);
    void update();

    const PowerRule m_rule;
    Handler m_onChange;
    PowerChoice m_choice = PowerChoice::Play;
    std::unique_ptr<DetachedTask> m_connecting;
    std::unique_ptr<PowerWatch> m_watch; ///< once connected
};

} // namespace kestro
