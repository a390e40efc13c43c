#pragma once

namespace kestro {

/// The double that JSON writes with the fewest digits that still read back as `value`: 0.1, not
/// 0.10000000149. Tested by SettingsReportTest.
[[nodiscard]] double shortestReal(float value);

} // namespace kestro
