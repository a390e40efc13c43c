#pragma once

#include "config_ui/EntryReader.h"
#include "config_ui/PlaylistTable.h"

#include <QObject>
#include <QTimer>

#include <optional>

class QLabel;

namespace kestro {

class ConfigModel;
class RQTableViewRowMove;

/// Makes a table the playlist's: shows it, edits it in place, moves its rows with Alt, deletes with the
/// Delete key, goes to its ends with Home and End, and has the movies of the rows in sight, and of no others,
/// looked into. Owned by the sheet, which owns the table too. Main thread. Tested by ConfigSheetPlaylistTest.
class PlaylistPane final : public QObject {
    Q_OBJECT

public:
    /// `read` looks into the movie of an entry.
    PlaylistPane(RQTableViewRowMove& table, ConfigModel& model, const ProbeWorker::Read& read);

    /// The selected rows, from the first.
    [[nodiscard]] QList<int> selectedRows() const;
    /// Deletes them, and selects what stands there then.
    void deleteSelected();
    /// The folder of the one selected row, where that is a file of this machine, or the
    /// folder that it is.
    [[nodiscard]] std::optional<QString> folderOfSelected() const;
    /// Has the movies of the selected rows looked into as if nothing was known of them.
    void lookAgain();
    /// Selects the rows from `first` to the last, scrolls to them and gives them the keys; nothing where
    /// there is none.
    void showFrom(int first);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setUpTable();
    void setUpMoves();
    void addKeys();
    void begin();
    void lookAgainAt(int row);
    void takeAdded(int first);
    void showHint();
    void readRowsInSight();

    RQTableViewRowMove& m_view;
    ConfigModel& m_model;
    EntryReader m_reader;
    PlaylistTable m_table;
    QLabel* m_hint; ///< what to do where there is no row; the table owns it
    QTimer m_look;  ///< coalesces the looks at which rows are in sight
};

} // namespace kestro
