#pragma once

#include <optional>

namespace kestro {

/// What feeds the machine, as far as a service tells of it.
struct PowerState {
    bool onBattery = false;
    std::optional<double> percent; ///< of all batteries together; none where there is none or none is told of
    bool powerSaver = false;       ///< the person has chosen to save power
    bool lidClosed = false;

    bool operator==(const PowerState&) const = default;
};

} // namespace kestro
