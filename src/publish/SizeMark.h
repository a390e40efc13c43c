#pragma once

#include <QString>

#include <optional>

namespace kestro {

/// The end of a file name that tells one size of a movie from the others: "480" of "waves_480", "720p" of
/// "waves (720p)", "640x272", "hd". A value.
struct SizeMark {
    QString base;         ///< what stands before it; empty where the name is nothing but a mark
    int number = 0;       ///< the width or height in it; 0 for a word
    bool isPlain = false; ///< a number alone, which may be a part of the title
};

/// The mark at the end of `name`, a file name without its extension or a folder's; nothing where none is.
[[nodiscard]] std::optional<SizeMark> sizeMark(const QString& name);

/// Whether a number without a unit is a size of a movie of `width` by `height`: one of the two, or a size
/// that movies usually come in.
[[nodiscard]] bool isSizeOf(int number, int width, int height);

} // namespace kestro
