#pragma once

#include <QString>

namespace kestro {

/// The folder for what Kestro remembers from one run to the next, and could do without: "kestro" in
/// .local/state of KESTRO_HOME where that is set, else in XDG_STATE_HOME, else in .local/state of the home
/// folder. It need not exist. Main thread.
[[nodiscard]] QString stateFolder();

} // namespace kestro
