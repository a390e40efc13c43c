#pragma once

#include <QString>

class QUrl;
class QWidget;

namespace kestro {

// Where the movie file of a trailer is saved. Main thread.

/// Asks with a save panel where the file of `url` is to go: its name is proposed, its extension required.
/// Folders can be made there. Empty when that was given up.
[[nodiscard]] QString askWhereToSave(const QUrl& url, QWidget* parent);

/// `path` with ".extension" at its end; as it is where it has that, in whatever case, or none is required.
[[nodiscard]] QString withRequiredFileType(const QString& path, const QString& extension);

} // namespace kestro
