#pragma once

#include <QString>

namespace kestro {

// Where things are on this machine. Paths are absolute, without a slash at the end. Main thread.

/// The user's home folder, or KESTRO_HOME where that is set and not empty.
[[nodiscard]] QString homeFolder();

/// The folder of the package's libraries, of its saver bundle, and of the programs that nobody starts by
/// hand: the one that holds this library. The build tree has the same shape as what is installed.
[[nodiscard]] QString packageLibraries();

/// The folder of what the package brings besides code, kestro in the folder for data of its prefix.
[[nodiscard]] QString packageData();

/// The file of the program that a person or xscreensaver starts.
[[nodiscard]] QString kestroProgram();

/// Where an absolute path of the desktop lies here: `path` itself if something exists there, else the same
/// path below the package's platform root (`root` in packageData()). KESTRO_ROOT, where set, stands for
/// both: the answer is then always below it. What is answered need not exist.
[[nodiscard]] QString platformPath(const QString& path);

/// The folder for files of ours on this user's disk that may be lost at any time: "kestro" in .cache of
/// KESTRO_HOME where that is set, else in XDG_CACHE_HOME, else in .cache of the home folder. It need not
/// exist.
[[nodiscard]] QString cacheFolder();

/// A folder for scratch files that only this user can enter (mode 0700, ours), made where it is not there:
/// that of the session (below XDG_RUNTIME_DIR), or one among the user's caches. Always the same one for a
/// user, never in a folder that others write in; whoever puts something there takes it away. Empty when none
/// can be made.
[[nodiscard]] QString temporaryFolder();

} // namespace kestro
