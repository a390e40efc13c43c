#pragma once

#include <memory>

class QSettings;

namespace kestro {

class Preview;

/// Loads the library that plays movies, and answers its preview; null, and why on standard error, when it
/// cannot be loaded. `state` is where the sheet keeps its own from one time to the next; it outlives the
/// preview. Takes some 50 milliseconds. Main thread. Tested by test_settings.
[[nodiscard]] std::unique_ptr<Preview> loadPreview(QSettings& state);

} // namespace kestro
