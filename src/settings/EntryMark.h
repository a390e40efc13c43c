#pragma once

#include "settings/PlayTime.h"

#include <QMetaType>

#include <optional>

class QUrl;

namespace kestro {

/// What a person said of one entry of the playlist. A plain value.
struct EntryMark {
    bool isStarred = false; ///< it comes more often where random order remembers
    PlayTime time;          ///< when it plays

    [[nodiscard]] bool operator==(const EntryMark&) const = default;
};

/// What words with blanks between them say: "star", a time of the day, or both. Nothing where one of them
/// says nothing, or one thing is said twice.
[[nodiscard]] std::optional<EntryMark> entryMarkFrom(const QString& words);

/// The words for it; empty where nothing was said.
[[nodiscard]] QString textOf(const EntryMark& mark);

/// What the entry of a folder says of itself: folder:///home/ada/Films?star=1&when=night. What is not
/// understood says nothing.
[[nodiscard]] EntryMark markOfFolder(const QUrl& entry);

/// The entry of a folder with that said of it, and else as it was.
[[nodiscard]] QUrl folderWithMark(const QUrl& entry, const EntryMark& mark);

} // namespace kestro

Q_DECLARE_METATYPE(kestro::EntryMark)
