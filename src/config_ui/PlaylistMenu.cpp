#include "config_ui/PlaylistMenu.h"

#include "config_ui/ConfigPanels.h"
#include "config_ui/PlaylistPane.h"
#include "config_ui/RQTableViewRowMove.h"

#include <QAbstractButton>
#include <QContextMenuEvent>
#include <QMenu>

#include <utility>

namespace kestro {

PlaylistMenu::PlaylistMenu(RQTableViewRowMove& table, PlaylistPane& pane, ConfigPanels& panels,
                           QList<QAbstractButton*> buttons)
    : m_table(table)
    , m_pane(pane)
    , m_panels(panels)
    , m_buttons(std::move(buttons))
{
    m_table.installEventFilter(this);
    m_table.viewport()->installEventFilter(this);
}

// The mouse asks for it where it is, the key at the row that the keys are on.
bool PlaylistMenu::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::ContextMenu) return QObject::eventFilter(watched, event);
    const auto& wish = static_cast<const QContextMenuEvent&>(*event);
    const QRect row = m_table.visualRect(m_table.currentIndex()) & m_table.viewport()->rect();
    const bool isByKey = wish.reason() == QContextMenuEvent::Keyboard;
    show(isByKey ? m_table.viewport()->mapToGlobal(row.center()) : wish.globalPos());
    return true;
}

void PlaylistMenu::show(const QPoint& place)
{
    if (m_table.isMovingRow()) return;
    auto* const menu = new QMenu(&m_table);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (QAbstractButton* const button : m_buttons)
        addButton(*menu, button);
    menu->addSeparator();
    addOfRows(*menu);
    menu->popup(place);
}

void PlaylistMenu::addButton(QMenu& menu, QAbstractButton* button)
{
    if (button == nullptr) {
        menu.addSeparator();
        return;
    }
    const QString name = button->accessibleName();
    QAction* const entry = menu.addAction(name.isEmpty() ? button->text() : name);
    entry->setEnabled(button->isEnabled());
    connect(entry, &QAction::triggered, button, &QAbstractButton::click);
}

void PlaylistMenu::addOfRows(QMenu& menu)
{
    const auto folder = m_pane.folderOfSelected();
    QAction* const open = menu.addAction(tr("&Open Folder"));
    open->setEnabled(folder.has_value());
    connect(open, &QAction::triggered, this, [this, folder] { m_panels.openFolder(*folder); });
    QAction* const look = menu.addAction(tr("&Look Again"));
    look->setEnabled(!m_pane.selectedRows().isEmpty());
    connect(look, &QAction::triggered, &m_pane, &PlaylistPane::lookAgain);
}

} // namespace kestro
