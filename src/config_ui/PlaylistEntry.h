#pragma once

#include <QString>
#include <QUrl>

#include <optional>

namespace kestro {

/// One entry of the playlist that is being edited: where its movie is, and the text it is stored as. QUrl
/// changes letters that mean nothing; the text stays as it was typed. A value; any thread.
struct PlaylistEntry {
    QUrl url;
    QString text; ///< absolute URL

    bool operator==(const PlaylistEntry&) const = default;
};

/// The entry of an absolute URL.
[[nodiscard]] PlaylistEntry entryOfURL(const QUrl& url);
/// The entry of a file's absolute path.
[[nodiscard]] PlaylistEntry entryOfFile(const QString& path);
/// The entry of a typed text, white space around it left out; nothing when it is no absolute URL.
[[nodiscard]] std::optional<PlaylistEntry> entryOfText(const QString& text);

} // namespace kestro
