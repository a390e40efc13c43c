#pragma once

#include <QString>

namespace kestro {

/// Ends this process, and whatever it started, as soon as the saver's process is gone, even while the main
/// thread hangs, and deletes the folder that the browser kept its things in. Runs on a thread of its own for
/// the life of the process. `channel` is the line to the saver. Tested by test_web_helper.
void endWithParent(int channel, const QString& home);

} // namespace kestro
