#include "config_ui/PlaylistMenu.h"

#include "config_ui/ConfigModel.h"
#include "config_ui/ConfigPanels.h"
#include "config_ui/PlaylistPane.h"
#include "config_ui/RQTableViewRowMove.h"

#include <QAbstractButton>
#include <QContextMenuEvent>
#include <QMenu>

#include <algorithm>
#include <utility>

namespace kestro {

PlaylistMenu::PlaylistMenu(RQTableViewRowMove& table, PlaylistPane& pane, ConfigModel& model,
                           ConfigPanels& panels, QList<QAbstractButton*> buttons)
    : m_table(table)
    , m_pane(pane)
    , m_model(model)
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
    addStar(*menu);
    addTimes(*menu);
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

QList<EntryMark> PlaylistMenu::marksOfSelected() const
{
    QList<EntryMark> marks;
    for (const int row : m_pane.selectedRows())
        marks.append(m_model.marks().of(m_model.playList().entries()[row]));
    return marks;
}

std::optional<PlayTime> PlaylistMenu::timeOfSelected() const
{
    const QList<EntryMark> marks = marksOfSelected();
    const auto isAsFirst = [&marks](const EntryMark& mark) { return mark.time == marks.first().time; };
    if (marks.isEmpty() || !std::all_of(marks.begin(), marks.end(), isAsFirst)) return {};
    return marks.first().time;
}

void PlaylistMenu::addStar(QMenu& menu)
{
    QAction* const star = menu.addAction(tr("&Star"));
    star->setCheckable(true);
    const QList<EntryMark> marks = marksOfSelected();
    star->setChecked(
        std::all_of(marks.begin(), marks.end(), [](const auto& each) { return each.isStarred; }));
    star->setEnabled(!marks.isEmpty());
    connect(star, &QAction::toggled, this, [this](bool isOn) {
        m_model.marks().mark(m_pane.selectedRows(), [isOn](EntryMark& mark) { mark.isStarred = isOn; });
    });
}

void PlaylistMenu::addTimes(QMenu& menu)
{
    QMenu* const times = menu.addMenu(tr("&Plays"));
    times->setEnabled(!m_pane.selectedRows().isEmpty());
    addTime(*times, tr("&Always"), {});
    addTime(*times, tr("By &Day"), {.kind = PlayTime::Kind::Day});
    addTime(*times, tr("At &Night"), {.kind = PlayTime::Kind::Night});
    QAction* const between = times->addAction(tr("&Between…"));
    between->setCheckable(true);
    between->setChecked(timeOfSelected().value_or(PlayTime()).kind == PlayTime::Kind::Hours);
    connect(between, &QAction::triggered, this, [this] { m_model.askForHours(m_pane.selectedRows()); });
}

void PlaylistMenu::addTime(QMenu& menu, const QString& text, const PlayTime& time)
{
    QAction* const action = menu.addAction(text);
    action->setCheckable(true);
    action->setChecked(timeOfSelected() == time);
    connect(action, &QAction::triggered, this, [this, time] {
        m_model.marks().mark(m_pane.selectedRows(), [&time](EntryMark& mark) { mark.time = time; });
    });
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
