#pragma once

#include "platform/base/Result.h"

#include <QString>

namespace kestro {

class SaverPlugin;

/// The saver library in the bundle at that path, loaded: Contents/Linux/<executable>, or <executable>.so. It
/// stays loaded for the life of the process; a second load answers the same. Runs the library's code, unless
/// it says itself that it was built for another interface than this program's. What it throws meanwhile is
/// the error. Main thread. Tested by SaverBundleTest.
[[nodiscard]] Result<SaverPlugin*> loadSaverLibrary(const QString& bundle, const QString& executable);

} // namespace kestro
