#pragma once

#include "config_ui/PlaylistEntry.h"

#include <QCoreApplication>

namespace kestro {

struct EntryFacts;
struct EntryMark;
struct MovieFault;
struct PlayTime;

/// What a row of the playlist says of its entry. Any thread.
class EntryText final {
    Q_DECLARE_TR_FUNCTIONS(EntryText)

public:
    /// Whether the entry is a movie, or a folder or list, that can be looked into: not web content, not the
    /// newest trailers, and nothing that is never opened.
    [[nodiscard]] static bool hasMovie(const QUrl& url);

    /// The movie's or the folder's own name.
    [[nodiscard]] static QString name(const PlaylistEntry& entry);
    /// What it is, where it lies, or why it cannot be opened; `facts` is null as long as nothing is known.
    [[nodiscard]] static QString detail(const PlaylistEntry& entry, const EntryFacts* facts);
    /// Whether the detail is a reason why it does not play.
    [[nodiscard]] static bool isFault(const PlaylistEntry& entry, const EntryFacts* facts);
    /// How long it is: "1:05", "1:02:03"; empty when that is unknown.
    [[nodiscard]] static QString duration(const EntryFacts* facts);
    /// What was said of it, in words; empty where nothing was.
    [[nodiscard]] static QString mark(const EntryMark& mark);
    /// The whole of it, for a tool tip: the URL, why it does not play, and what can be done about it.
    [[nodiscard]] static QString toolTip(const PlaylistEntry& entry, const EntryFacts* facts);

private:
    [[nodiscard]] static QString folderDetail(const QUrl& url, const EntryFacts* facts);
    [[nodiscard]] static QString listDetail(const QUrl& url, const EntryFacts* facts);
    [[nodiscard]] static QString timeText(const PlayTime& time);
    [[nodiscard]] static QString faultText(const QUrl& url, const MovieFault& fault);
};

} // namespace kestro
