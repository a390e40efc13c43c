#pragma once

#include "config_ui/PlaylistEntry.h"

#include <QList>
#include <QObject>

namespace kestro {

/// The playlist as it is being edited ("playList"). Owned by the sheet's model; nothing is stored from here.
/// Main thread.
class EditedPlaylist final : public QObject {
    Q_OBJECT

public:
    [[nodiscard]] const QList<PlaylistEntry>& entries() const { return m_entries; }

    /// Takes these entries in place of all.
    void reset(const QList<PlaylistEntry>& entries);
    /// Appends the entries in their order, unchecked.
    void append(const QList<PlaylistEntry>& entries);
    /// Removes the entries at these rows, whatever their order; rows that are none are passed over.
    void remove(const QList<int>& rows);
    /// Puts the entry of a typed text at a row; answers whether the text is a URL and the row there is one.
    /// Whether the URL may name a movie is not looked at.
    bool replace(int row, const QString& text);
    /// Takes the entry at `from` out and puts it at `to`, counted without it; answers whether both are rows.
    bool move(int from, int to);

Q_SIGNALS:
    void changed();
    /// New entries stand from this row on, after changed().
    void appended(int first);

private:
    [[nodiscard]] bool isRow(int row) const { return row >= 0 && row < m_entries.size(); }

    QList<PlaylistEntry> m_entries;
};

} // namespace kestro
