#include "platform/session/PowerRule.h"

#include <algorithm>
#include <cmath>

namespace kestro {

bool PowerRule::isLow(const PowerState& state) const
{
    return state.onBattery && state.percent && *state.percent < lowPercent;
}

PowerChoice PowerRule::choose(const PowerState& state) const
{
    PowerChoice choice = PowerChoice::Play;
    if (state.onBattery) choice = std::max(choice, onBattery);
    if (isLow(state)) choice = std::max(choice, whenLow);
    if (state.powerSaver) choice = std::max(choice, inPowerSaver);
    return choice;
}

QString PowerRule::reason(const PowerState& state) const
{
    const PowerChoice choice = choose(state);
    if (choice == PowerChoice::Play) return {};
    if (isLow(state) && whenLow == choice)
        return QStringLiteral("%1 %").arg(static_cast<int>(std::floor(*state.percent)));
    if (state.powerSaver && inPowerSaver == choice) return QStringLiteral("power-saver");
    return {};
}

} // namespace kestro
