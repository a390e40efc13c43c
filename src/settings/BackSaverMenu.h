#pragma once

#include <QStringList>

namespace kestro {

class Settings;

// The pop-up menu of the savers that may run behind the movies. Main thread.

/// The items of the menu for the bundles at `paths`: "Disable", then the file name of each.
[[nodiscard]] QStringList backSaverItems(const QStringList& paths);

/// The item of the menu that stands for the stored saver: the first one of its file name, 0 for none. A
/// stored saver that is not among them is taken out of the options in memory, with a line in the log; the
/// file keeps it until it is written next.
int selectBackSaver(Settings& settings, const QStringList& items);

} // namespace kestro
