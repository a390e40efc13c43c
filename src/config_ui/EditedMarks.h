#pragma once

#include "platform/base/Result.h"
#include "settings/EntryMarks.h"

#include <QObject>

#include <functional>

namespace kestro {

class EditedPlaylist;
struct PlaylistEntry;

/// What is said of the entries of the playlist that is being edited: a folder's entry says it itself, what is
/// said of any other is stored beside the playlist, by save() alone. Owned by the sheet's model. Main thread.
class EditedMarks final : public QObject {
    Q_OBJECT

public:
    /// Both outlive this. Without `stored` nothing is stored.
    EditedMarks(EditedPlaylist& list, EntryMarks* stored)
        : m_list(list)
        , m_stored(stored)
    {
    }

    /// The playlist holds what is stored: what was said since is forgotten.
    void reset();
    [[nodiscard]] EntryMark of(const PlaylistEntry& entry) const;
    /// Has `change` change what is said of the entries at these rows.
    void mark(const QList<int>& rows, const std::function<void(EntryMark&)>& change);
    /// The entry at a row has taken the place of one of which that was said, which is said of it now.
    void carry(const EntryMark& mark, int row);
    /// Stores it; of entries that are gone nothing is said any more. The error is one line.
    [[nodiscard]] Result<void> save();

Q_SIGNALS:
    /// Something else is said of the entries of that URL.
    void changed(const QUrl& url);

private:
    void say(int row, const EntryMark& mark);

    EditedPlaylist& m_list;
    EntryMarks* m_stored;
    QHash<QUrl, EntryMark> m_said; ///< since the last reset
    QList<QUrl> m_known; ///< the entries of that time, and what came since with something said of it
};

} // namespace kestro
