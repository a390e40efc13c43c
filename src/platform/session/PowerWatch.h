#pragma once

#include "platform/session/BusObject.h"
#include "platform/session/PowerState.h"

namespace kestro {

/// What feeds the machine, kept up to date: by UPower, and by the service of power profiles under its old or
/// its new name. What none of them says, and what is said no more, is as if there were a plug. Owned by
/// whoever asks; main thread. Tested by PowerFactTest.
class PowerWatch final {
public:
    explicit PowerWatch(const QDBusConnection& systemBus);

    [[nodiscard]] const PowerState& state() const { return m_state; }
    /// Called from the event loop when state() has changed.
    void setChangeHandler(std::function<void()> handler) { m_onChange = std::move(handler); }
    /// Reads all anew; `onAnswer` is called once, at the latest after `SessionFact::patience`.
    void refresh(std::function<void()> onAnswer);

private:
    using Set = std::function<void(PowerState& state, const std::optional<QVariant>& value)>;

    void read(BusObject& object, const QString& property, Set set, const std::function<void()>& onAnswer);
    void readPower(const std::function<void()>& onAnswer);
    void readBattery(const std::function<void()>& onAnswer);
    void readProfile(int service, const std::function<void()>& onAnswer);
    void change(const std::function<void(PowerState&)>& how);

    BusObject m_power;
    BusObject m_battery;
    BusObject m_profiles[2];               ///< the new name, and the old one
    bool m_savesPower[2] = {false, false}; ///< by each of them
    PowerState m_state;
    std::function<void()> m_onChange;
};

} // namespace kestro
