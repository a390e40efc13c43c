#pragma once

namespace kestro {

/// What is asked of followFolder(). A plain value.
struct FolderQuestion {
    const char* path;
    bool isRecursive = false; ///< also what lies below its folders
    bool isNewestFirst = false;
    bool isHurried = false; ///< all at once, however many there are
    bool isOnce = false;    ///< and no more
    bool isList = false;    ///< a file, whose text is told
};

/// Writes to standard output which movies lie in a folder, and again whenever that has become something else,
/// until nobody reads it any more. A name is relative to the folder; a zero byte ends it. After the last one
/// of a listing stands ".." for a name, or "." where not all was looked at: that is said of a large folder at
/// once, and all of it some seconds later. A movie is what is called one; what is hidden, on its way here or
/// behind a link to a folder is none. Of a folder 100,000 names are looked at.
///
/// Of a file that is a list, one name is told: a new line and the text in it, zero bytes being new lines, cut
/// behind 1 MiB and a byte.
///
/// For a process that does nothing else. Tested by FolderWatchTest.
[[nodiscard]] int followFolder(const FolderQuestion& question);

} // namespace kestro
