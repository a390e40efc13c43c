#include "config_ui/EditedMarks.h"

#include "config_ui/EditedPlaylist.h"
#include "settings/FolderEntry.h"

namespace kestro {

void EditedMarks::reset()
{
    m_said.clear();
    m_known.clear();
    for (const PlaylistEntry& entry : m_list.entries())
        m_known.append(entry.url);
}

EntryMark EditedMarks::of(const PlaylistEntry& entry) const
{
    if (isFolderEntry(entry.url)) return markOfFolder(entry.url);
    const auto said = m_said.constFind(entry.url);
    if (said != m_said.constEnd()) return *said;
    return m_stored != nullptr ? m_stored->of(entry.url) : EntryMark();
}

void EditedMarks::mark(const QList<int>& rows, const std::function<void(EntryMark&)>& change)
{
    for (const int row : rows) {
        EntryMark mark = of(m_list.entries()[row]);
        change(mark);
        say(row, mark);
    }
}

void EditedMarks::carry(const EntryMark& mark, int row)
{
    const PlaylistEntry& entry = m_list.entries()[row];
    if (mark != EntryMark() && of(entry) == EntryMark() && !isFolderEntry(entry.url)) say(row, mark);
}

void EditedMarks::say(int row, const EntryMark& mark)
{
    const PlaylistEntry entry = m_list.entries()[row];
    if (of(entry) == mark) return;
    if (isFolderEntry(entry.url)) {
        m_list.replace(row, entryOfURL(folderWithMark(entry.url, mark)).text);
        return;
    }
    m_said.insert(entry.url, mark);
    m_known.append(entry.url);
    Q_EMIT changed(entry.url);
}

Result<void> EditedMarks::save()
{
    if (m_stored == nullptr) return {};
    QHash<QUrl, EntryMark> wishes;
    for (const QUrl& url : m_known)
        wishes.insert(url, EntryMark());
    for (const PlaylistEntry& entry : m_list.entries())
        wishes.insert(entry.url, of(entry));
    EntryMarks::Wishes sorted;
    for (const QUrl& url : m_known)
        if (const auto wish = wishes.constFind(url); wish != wishes.constEnd()) sorted.append({url, *wish});
    return m_stored->change(sorted);
}

} // namespace kestro
