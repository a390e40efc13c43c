#include "config_ui/EditedPlaylist.h"

#include <QSet>

namespace kestro {

void EditedPlaylist::reset(const QList<PlaylistEntry>& entries)
{
    m_entries = entries;
    Q_EMIT changed();
}

void EditedPlaylist::append(const QList<PlaylistEntry>& entries)
{
    const auto first = static_cast<int>(m_entries.size());
    m_entries.append(entries);
    Q_EMIT changed();
    if (!entries.isEmpty()) Q_EMIT appended(first);
}

void EditedPlaylist::remove(const QList<int>& rows)
{
    const QSet<int> marked(rows.begin(), rows.end());
    QList<PlaylistEntry> left;
    left.reserve(m_entries.size());
    for (int row = 0; row < m_entries.size(); ++row)
        if (!marked.contains(row)) left.append(m_entries[row]);
    m_entries = left;
    Q_EMIT changed();
}

bool EditedPlaylist::replace(int row, const QString& text)
{
    const auto entry = entryOfText(text);
    if (!entry || !isRow(row)) return false;
    m_entries[row] = *entry;
    Q_EMIT changed();
    return true;
}

bool EditedPlaylist::move(int from, int to)
{
    if (!isRow(from) || !isRow(to)) return false;
    m_entries.move(from, to);
    Q_EMIT changed();
    return true;
}

} // namespace kestro
