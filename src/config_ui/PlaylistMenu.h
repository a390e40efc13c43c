#pragma once

#include "settings/EntryMark.h"

#include <QList>
#include <QObject>

class QAbstractButton;
class QMenu;

namespace kestro {

class ConfigPanels;
class ConfigModel;
class PlaylistPane;
class RQTableViewRowMove;

/// The context menu of the playlist: what the buttons below it do, and what can be done with the movies that
/// are selected. Made anew each time, with the mouse or the key for it. Owned by the sheet. Main thread.
/// Tested by ConfigSheetRowsTest.
class PlaylistMenu final : public QObject {
    Q_OBJECT

public:
    /// All of them outlive the menu. A null among the buttons stands for a line between two groups.
    PlaylistMenu(RQTableViewRowMove& table, PlaylistPane& pane, ConfigModel& model, ConfigPanels& panels,
                 QList<QAbstractButton*> buttons);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void show(const QPoint& place);
    void addButton(QMenu& menu, QAbstractButton* button);
    void addOfRows(QMenu& menu);
    void addStar(QMenu& menu);
    void addTimes(QMenu& menu);
    void addTime(QMenu& menu, const QString& text, const PlayTime& time);
    [[nodiscard]] QList<EntryMark> marksOfSelected() const;
    /// When all selected entries play; nothing where that is not the same of all.
    [[nodiscard]] std::optional<PlayTime> timeOfSelected() const;

    RQTableViewRowMove& m_table;
    PlaylistPane& m_pane;
    ConfigModel& m_model;
    ConfigPanels& m_panels;
    QList<QAbstractButton*> m_buttons;
};

} // namespace kestro
