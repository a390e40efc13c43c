#pragma once

#include "config_ui/EntryFacts.h"
#include "config_ui/PlaylistEntry.h"

#include <QAbstractTableModel>
#include <QList>

namespace kestro {

class ConfigModel;
class EntryReader;

/// The playlist that is edited, as a table of one column shows it. Follows the sheet's model and the reader
/// of entries, both of which outlive it. Main thread.
class PlaylistTable final : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Role {
        DetailRole = Qt::UserRole, ///< the second line of a row
        DurationRole,
        FaultRole,   ///< whether the second line says why it does not play
        WaitingRole, ///< whether the movie is still to be looked into
        MarkRole,    ///< an EntryMark: what was said of the entry
    };

    PlaylistTable(ConfigModel& model, const EntryReader& reader, QObject* parent);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    [[nodiscard]] const PlaylistEntry& entry(int row) const { return m_entries[row]; }

private:
    [[nodiscard]] bool isRow(const QModelIndex& index) const
    {
        return index.isValid() && index.row() < m_entries.size();
    }
    void follow();
    void replaceRows(int first, int oldCount, const QList<PlaylistEntry>& rows);
    void showFacts(const QUrl& url);
    [[nodiscard]] const EntryFacts* facts(const PlaylistEntry& entry) const;
    [[nodiscard]] QString name(int row) const;
    [[nodiscard]] QString spokenText(int row) const;
    [[nodiscard]] QString toolTip(int row) const;
    void showPlaces();

    ConfigModel& m_model;
    const EntryReader& m_reader;
    QList<PlaylistEntry> m_entries; ///< what the views know; changes with their knowledge only
    QStringList m_places;           ///< of each row what tells it from others of its name
};

} // namespace kestro
