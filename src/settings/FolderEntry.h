#pragma once

#include <QString>

#include <optional>

class QUrl;

namespace kestro {

struct MovieFolder;

/// What an entry of the playlist that stands for the movies of a folder asks for:
/// folder:///home/ada/Videos?recursive=1&order=newest; or one that is a playlist file of this machine:
/// file:///home/ada/films.m3u. A value; any thread.
struct FolderEntry {
    enum class Order { Name, Newest, Shuffled };

    QString path; ///< absolute
    bool isRecursive = false;
    Order order = Order::Name;
    bool isList = false; ///< a playlist file, which has an order of its own

    [[nodiscard]] bool operator==(const FolderEntry&) const = default;
};

/// Whether a playlist entry is of the kind that stands for a folder; it may name none.
[[nodiscard]] bool isFolderEntry(const QUrl& url);

/// Whether a playlist entry is a playlist file of this machine.
[[nodiscard]] bool isListEntry(const QUrl& url);

/// What either asks for; nothing where it names no folder of this machine, and for an entry of any other
/// kind. "recursive" is on where it is 1; an "order" that is none counts as by name.
[[nodiscard]] std::optional<FolderEntry> folderEntry(const QUrl& url);

/// What is to be looked into for it. What is to be shuffled comes by name.
[[nodiscard]] MovieFolder movieFolder(const FolderEntry& entry);

/// The entry that asks for that.
[[nodiscard]] QUrl urlOf(const FolderEntry& entry);

} // namespace kestro
