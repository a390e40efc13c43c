#include "config_ui/EntryPlaces.h"

#include "config_ui/EntryText.h"
#include "config_ui/ThemeTableModel.h"
#include "settings/MovieURL.h"

#include <QHash>
#include <QSet>

#include <algorithm>

namespace kestro {

namespace {

const QString themeEnding = QStringLiteral(".theme");

/// The folders that an entry lies in, from the nearest, and its server at last.
QStringList foldersOf(const QUrl& url)
{
    QStringList folders = url.path(QUrl::FullyDecoded).split(u'/', Qt::SkipEmptyParts);
    if (!folders.isEmpty()) folders.removeLast();
    std::reverse(folders.begin(), folders.end());
    if (!url.host().isEmpty()) folders.append(url.host());
    return folders;
}

QString shownFolder(const QString& folder)
{
    return folder.endsWith(themeEnding) ? themeName(u'/' + folder + u'/') : folder;
}

QString wholeWay(QStringList folders)
{
    std::reverse(folders.begin(), folders.end());
    return folders.join(u'/');
}

/// Tells the entries at these rows, which share a name, from each other.
class NameSakes {
public:
    NameSakes(const QList<PlaylistEntry>& entries, const QList<int>& rows)
    {
        for (const int row : rows)
            m_members.append({row, entries[row].text, foldersOf(entries[row].url)});
    }

    void fill(QStringList& places)
    {
        if (std::ranges::all_of(m_members,
                                [this](const Member& each) { return each.text == m_members[0].text; }))
            return;
        qsizetype deepest = 0;
        for (const Member& member : m_members) {
            deepest = std::max(deepest, member.folders.size());
            places[member.row] = wholeWay(member.folders);
        }
        for (qsizetype depth = deepest - 1; depth >= 0; --depth)
            fillAt(depth, places);
    }

private:
    struct Member {
        int row;
        QString text;
        QStringList folders;
    };

    // The same entry twice is no two places.
    void fillAt(qsizetype depth, QStringList& places)
    {
        QHash<QString, QSet<QString>> textsIn;
        for (const Member& member : m_members)
            textsIn[member.folders.value(depth)].insert(member.text);
        for (const Member& member : m_members)
            if (const QString folder = member.folders.value(depth);
                !folder.isEmpty() && textsIn[folder].size() == 1)
                places[member.row] = shownFolder(folder);
    }

    QList<Member> m_members;
};

} // namespace

QStringList tellingPlaces(const QList<PlaylistEntry>& entries)
{
    QHash<QString, QList<int>> rowsOf;
    for (int row = 0; row < entries.size(); ++row)
        if (!isAutomaticEntry(entries[row].url)) rowsOf[EntryText::name(entries[row])].append(row);
    QStringList places(entries.size());
    for (const QList<int>& rows : rowsOf)
        if (rows.size() > 1) NameSakes(entries, rows).fill(places);
    return places;
}

} // namespace kestro
