#pragma once

#include "platform/session/PowerState.h"

#include <QString>

namespace kestro {

/// What the person wants to see when power is scarce, the later ones being the thriftier.
/// Tested by PowerFactTest.
enum class PowerChoice { Play, Still, Off };

/// The person's choice for each kind of scarcity. Plain values; any thread.
struct PowerRule {
    PowerChoice onBattery = PowerChoice::Play;
    double lowPercent = 20; ///< on battery, below this many percent, it is low
    PowerChoice whenLow = PowerChoice::Off;
    PowerChoice inPowerSaver = PowerChoice::Play;

    bool operator==(const PowerRule&) const = default;

    /// What to do now: the thriftiest of what applies. What is not known does not apply.
    [[nodiscard]] PowerChoice choose(const PowerState& state) const;
    /// What in that state made it so, in a word that needs no translation: "12 %", "power-saver"; empty where
    /// it is the battery as such, or nothing.
    [[nodiscard]] QString reason(const PowerState& state) const;

private:
    [[nodiscard]] bool isLow(const PowerState& state) const;
};

} // namespace kestro
