#pragma once

#include <QString>

namespace kestro {

/// A duration as a clock shows it: "1:05", and with hours where there are any "1:02:03". Any thread.
[[nodiscard]] QString durationText(qint64 seconds);

} // namespace kestro
