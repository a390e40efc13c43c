#include "config_ui/PlaylistTable.h"

#include "config_ui/ConfigModel.h"
#include "config_ui/EntryPlaces.h"
#include "config_ui/EntryReader.h"
#include "config_ui/EntryText.h"

#include <algorithm>
#include <utility>

namespace kestro {

PlaylistTable::PlaylistTable(ConfigModel& model, const EntryReader& reader, QObject* parent)
    : QAbstractTableModel(parent)
    , m_model(model)
    , m_reader(reader)
    , m_entries(model.playList().entries())
    , m_places(tellingPlaces(m_entries))
{
    connect(&model.playList(), &EditedPlaylist::changed, this, &PlaylistTable::follow);
    connect(&model.marks(), &EditedMarks::changed, this, &PlaylistTable::showFacts);
    connect(&reader, &EntryReader::learned, this, &PlaylistTable::showFacts);
}

int PlaylistTable::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_entries.size());
}

int PlaylistTable::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : 1;
}

QVariant PlaylistTable::data(const QModelIndex& index, int role) const
{
    if (!isRow(index)) return {};
    const PlaylistEntry& row = m_entries[index.row()];
    const EntryFacts* const known = facts(row);
    switch (role) {
    case Qt::DisplayRole:
        return name(index.row());
    case Qt::EditRole:
        return row.text;
    case Qt::ToolTipRole:
        return toolTip(index.row());
    case Qt::DecorationRole:
        return known != nullptr ? QVariant(known->picture) : QVariant();
    case Qt::AccessibleTextRole:
        return spokenText(index.row());
    case DetailRole:
        return EntryText::detail(row, known);
    case DurationRole:
        return EntryText::duration(known);
    case FaultRole:
        return EntryText::isFault(row, known);
    case WaitingRole:
        return EntryText::hasMovie(row.url) && known == nullptr;
    case MarkRole:
        return QVariant::fromValue(m_model.marks().of(row));
    default:
        return {};
    }
}

const EntryFacts* PlaylistTable::facts(const PlaylistEntry& entry) const
{
    return EntryText::hasMovie(entry.url) ? m_reader.facts(entry.url) : nullptr;
}

QString PlaylistTable::name(int row) const
{
    const QString place = m_places.value(row);
    const QString name = EntryText::name(m_entries[row]);
    return place.isEmpty() ? name : QStringLiteral("%1 (%2)").arg(name, place);
}

QString PlaylistTable::spokenText(int row) const
{
    const PlaylistEntry& entry = m_entries[row];
    const EntryFacts* const known = facts(entry);
    QStringList parts{name(row), EntryText::duration(known), EntryText::detail(entry, known),
                      EntryText::mark(m_model.marks().of(entry))};
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

QString PlaylistTable::toolTip(int row) const
{
    const PlaylistEntry& entry = m_entries[row];
    const QString said = EntryText::mark(m_model.marks().of(entry));
    const QString text = EntryText::toolTip(entry, facts(entry));
    return said.isEmpty() ? text : text + u'\n' + said;
}

Qt::ItemFlags PlaylistTable::flags(const QModelIndex& index) const
{
    if (!index.isValid()) return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemNeverHasChildren;
}

QVariant PlaylistTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole) return tr("Movie");
    return QAbstractTableModel::headerData(section, orientation, role);
}

bool PlaylistTable::setData(const QModelIndex& index, const QVariant& value, int role)
{
    return role == Qt::EditRole && isRow(index) && m_model.editEntry(index.row(), value.toString());
}

// Only what lies between the rows that stayed the same at both ends is told, so that the views keep their
// place and selection elsewhere.
void PlaylistTable::follow()
{
    const QList<PlaylistEntry>& now = m_model.playList().entries();
    const auto shorter = std::min(m_entries.size(), now.size());
    const auto same = std::mismatch(m_entries.begin(), m_entries.begin() + shorter, now.begin()).first;
    const auto first = same - m_entries.begin();
    const auto rest = shorter - first;
    const auto sameAtEnd = std::mismatch(m_entries.rbegin(), m_entries.rbegin() + rest, now.rbegin()).first;
    const auto kept = sameAtEnd - m_entries.rbegin();
    replaceRows(static_cast<int>(first), static_cast<int>(m_entries.size() - first - kept),
                now.sliced(first, now.size() - first - kept));
    showPlaces();
}

// An entry that comes or goes also changes what is said of others with its name.
void PlaylistTable::showPlaces()
{
    const QStringList before = std::exchange(m_places, tellingPlaces(m_entries));
    for (int row = 0; row < rowCount(); ++row)
        if (m_places[row] != before.value(row))
            Q_EMIT dataChanged(index(row, 0), index(row, 0), {Qt::DisplayRole});
}

void PlaylistTable::replaceRows(int first, int oldCount, const QList<PlaylistEntry>& rows)
{
    const int newCount = static_cast<int>(rows.size());
    const int changed = std::min(oldCount, newCount);
    std::copy(rows.begin(), rows.begin() + changed, m_entries.begin() + first);
    if (changed > 0) Q_EMIT dataChanged(index(first, 0), index(first + changed - 1, 0));
    if (oldCount > changed) {
        beginRemoveRows({}, first + changed, first + oldCount - 1);
        m_entries.remove(first + changed, oldCount - changed);
        endRemoveRows();
    }
    if (newCount > changed) {
        beginInsertRows({}, first + changed, first + newCount - 1);
        m_entries.insert(first + changed, newCount - changed, PlaylistEntry());
        std::copy(rows.begin() + changed, rows.end(), m_entries.begin() + first + changed);
        endInsertRows();
    }
}

void PlaylistTable::showFacts(const QUrl& url)
{
    for (int row = 0; row < m_entries.size(); ++row)
        if (m_entries[row].url == url) Q_EMIT dataChanged(index(row, 0), index(row, 0));
}

} // namespace kestro
