#pragma once

#include <QJsonObject>

namespace kestro {

class Settings;

/// Every settings accessor by its name, with its answer: flags, whole numbers, reals, and `backSaver` as text
/// or null. A real is written with the fewest digits that read back as the same single-precision number.
[[nodiscard]] QJsonObject settingsReport(const Settings& settings);

} // namespace kestro
