#include "platform/session/PowerWatch.h"

#include "platform/session/CallsLeft.h"

namespace kestro {

namespace {

const QString upower = QStringLiteral("org.freedesktop.UPower");
const QString profilesName = QStringLiteral("org.freedesktop.UPower.PowerProfiles");
const QString oldProfilesName = QStringLiteral("net.hadess.PowerProfiles");

constexpr auto allowed = BusObject::Starting::Allowed;

} // namespace

PowerWatch::PowerWatch(const QDBusConnection& systemBus)
    : m_power(systemBus, {upower, QStringLiteral("/org/freedesktop/UPower"), upower}, allowed)
    , m_battery(systemBus,
                {upower, QStringLiteral("/org/freedesktop/UPower/devices/DisplayDevice"),
                 QStringLiteral("org.freedesktop.UPower.Device")},
                allowed)
    , m_profiles{
          {systemBus, {profilesName, QStringLiteral("/org/freedesktop/UPower/PowerProfiles"), profilesName}},
          {systemBus, {oldProfilesName, QStringLiteral("/net/hadess/PowerProfiles"), oldProfilesName}}}
{
    const auto nobody = [] {};
    m_power.listenToProperties([this, nobody] { readPower(nobody); });
    m_battery.listenToProperties([this, nobody] { readBattery(nobody); });
    m_power.listenToOwner([this, nobody](bool) {
        readPower(nobody);
        readBattery(nobody);
    });
    for (const int service : {0, 1}) {
        m_profiles[service].listenToProperties([this, nobody, service] { readProfile(service, nobody); });
        m_profiles[service].listenToOwner([this, nobody, service](bool) { readProfile(service, nobody); });
    }
    refresh(nobody);
}

void PowerWatch::refresh(std::function<void()> onAnswer)
{
    const auto answered = afterCalls(4, std::move(onAnswer));
    readPower(answered);
    readBattery(answered);
    readProfile(0, answered);
    readProfile(1, answered);
}

void PowerWatch::read(BusObject& object, const QString& property, Set set,
                      const std::function<void()>& onAnswer)
{
    object.property(property, [this, set = std::move(set), onAnswer](const std::optional<QVariant>& value) {
        change([&](PowerState& state) { set(state, value); });
        onAnswer();
    });
}

void PowerWatch::readPower(const std::function<void()>& onAnswer)
{
    const auto answered = afterCalls(2, onAnswer);
    read(
        m_power, QStringLiteral("OnBattery"),
        [](PowerState& state, const auto& value) { state.onBattery = value && value->toBool(); }, answered);
    read(
        m_power, QStringLiteral("LidIsClosed"),
        [](PowerState& state, const auto& value) { state.lidClosed = value && value->toBool(); }, answered);
}

/// Its "percentage" is 0 where there is no battery: so whether there is one is asked as well.
void PowerWatch::readBattery(const std::function<void()>& onAnswer)
{
    const QDeadlineTimer until(SessionFact::patience);
    const auto tell = [this, onAnswer](const std::optional<QVariant>& percent) {
        change([&percent](PowerState& state) {
            state.percent = percent ? std::optional(percent->toDouble()) : std::nullopt;
        });
        onAnswer();
    };
    m_battery.property(
        QStringLiteral("IsPresent"),
        [this, tell, until](const std::optional<QVariant>& isPresent) {
            if (!isPresent || !isPresent->toBool()) return tell(std::nullopt);
            m_battery.property(QStringLiteral("Percentage"), tell, until);
        },
        until);
}

void PowerWatch::readProfile(int service, const std::function<void()>& onAnswer)
{
    read(
        m_profiles[service], QStringLiteral("ActiveProfile"),
        [this, service](PowerState& state, const auto& value) {
            m_savesPower[service] = value && value->toString() == QStringLiteral("power-saver");
            state.powerSaver = m_savesPower[0] || m_savesPower[1];
        },
        onAnswer);
}

void PowerWatch::change(const std::function<void(PowerState&)>& how)
{
    const PowerState before = m_state;
    how(m_state);
    if (before != m_state && m_onChange) m_onChange();
}

} // namespace kestro
