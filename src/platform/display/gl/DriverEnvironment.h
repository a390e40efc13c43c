#pragma once

#include <QString>

#include <utility>
#include <vector>

namespace kestro {

/// What a machine has that its drivers are asked for differently.
struct GraphicsMachine {
    bool hasCard = false;
    bool hasNvidiaDriver = false; ///< the maker's own
};
/// `kernel` is the folder in which the kernel tells of its drivers.
[[nodiscard]] GraphicsMachine graphicsMachine(const QString& kernel = QStringLiteral("/proc"),
                                              const QString& devices = QStringLiteral("/dev"));

/// Environment variables for the drivers, by their names. On X11 decoders hand their frames over without a
/// copy through EGL alone, which Qt does not take by itself; NVIDIA's driver has a way of its own, and
/// decodes at full clocks however little there is to do where it is not told otherwise.
[[nodiscard]] std::vector<std::pair<const char*, const char*>>
driverVariables(const GraphicsMachine& machine);

/// Sets them in this process, but for those that the person has set. Before the application object is made.
void prepareDrivers(const GraphicsMachine& machine = graphicsMachine());

} // namespace kestro
