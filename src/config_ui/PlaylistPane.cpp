#include "config_ui/PlaylistPane.h"

#include "config_ui/ConfigModel.h"
#include "config_ui/EntryText.h"
#include "config_ui/PlaylistDelegate.h"
#include "config_ui/RQTableViewRowMove.h"
#include "platform/base/FileURL.h"
#include "settings/FolderEntry.h"

#include <QEvent>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>
#include <QShortcut>

#include <algorithm>

namespace kestro {

PlaylistPane::PlaylistPane(RQTableViewRowMove& table, ConfigModel& model, const ProbeWorker::Read& read)
    : m_view(table)
    , m_model(model)
    , m_reader(read)
    , m_table(model, m_reader, nullptr)
    , m_hint(new QLabel(tr("Add movies with the buttons below, or drop files and folders here."),
                        table.viewport()))
{
    setUpTable();
    setUpMoves();
    addKeys();

    m_look.setSingleShot(true);
    connect(&m_look, &QTimer::timeout, this, &PlaylistPane::readRowsInSight);
    const auto lookSoon = [this] { m_look.start(0); };
    connect(m_view.verticalScrollBar(), &QScrollBar::valueChanged, this, lookSoon);
    connect(&m_model.playList(), &EditedPlaylist::changed, this, lookSoon);
    connect(&m_model.playList(), &EditedPlaylist::changed, this, &PlaylistPane::showHint);
    connect(&m_model.playList(), &EditedPlaylist::appended, this, &PlaylistPane::takeAdded);
    showHint();
    m_view.viewport()->installEventFilter(this);
}

void PlaylistPane::setUpTable()
{
    m_view.setModel(&m_table);
    m_hint->setAlignment(Qt::AlignCenter);
    m_hint->setWordWrap(true);
    m_hint->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto* const delegate = new PlaylistDelegate(&m_view);
    m_view.setItemDelegate(delegate);
    connect(delegate, &PlaylistDelegate::signClicked, this,
            [this](const QModelIndex& index) { lookAgainAt(index.row()); });
    m_view.setSelectionBehavior(QAbstractItemView::SelectRows);
    m_view.setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_view.setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    m_view.setShowGrid(false);
    m_view.setWordWrap(false);
    m_view.setTabKeyNavigation(false);
    m_view.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_view.horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    m_view.horizontalHeader()->hide();
    m_view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_view.verticalHeader()->setMinimumSectionSize(1);
    m_view.verticalHeader()->setDefaultSectionSize(PlaylistDelegate::rowHeight(m_view.fontMetrics()));
    m_view.verticalHeader()->hide();
}

void PlaylistPane::setUpMoves()
{
    m_view.setNeedsCommandKey(true);
    m_view.setRowMoveDelegate({
        .tableViewShouldMoveRowInColumn = [](RQTableViewRowMove&, int, int) { return true; },
        .tableViewWillDepositRowAt = [](RQTableViewRowMove&, int, int) { return true; },
        .tableViewDidDepositRowAt = [this](RQTableViewRowMove&, int from,
                                           int to) { return m_model.playList().move(from, to); },
        .tableViewImageForRow = {},
        .dragTypesOfTable = {},
        .tableViewPboardSelectorForType = {},
        .tableViewObjectForType = {},
        .tableViewDraggingRowOverRow = {},
    });
}

void PlaylistPane::addKeys()
{
    const auto add = [this](Qt::Key key, auto action) {
        auto* const shortcut = new QShortcut(key, &m_view, nullptr, nullptr, Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, action);
    };
    add(Qt::Key_Delete, [this] { deleteSelected(); });
    add(Qt::Key_Home, [this] { m_view.selectRowAlone(0); });
    add(Qt::Key_End, [this] { m_view.selectRowAlone(m_table.rowCount() - 1); });
}

QList<int> PlaylistPane::selectedRows() const
{
    QList<int> rows;
    for (const QModelIndex& index : m_view.selectionModel()->selectedRows())
        rows.append(index.row());
    std::sort(rows.begin(), rows.end());
    return rows;
}

void PlaylistPane::deleteSelected()
{
    const QList<int> rows = selectedRows();
    if (rows.isEmpty()) return;
    m_view.clearSelection();
    m_model.deleteMovie(rows);
    const int next = std::min(rows.first(), m_table.rowCount() - 1);
    if (next >= 0) m_view.selectRowAlone(next);
}

std::optional<QString> PlaylistPane::folderOfSelected() const
{
    const QList<int> rows = selectedRows();
    if (rows.size() != 1) return {};
    const QUrl& url = m_table.entry(rows.first()).url;
    if (const auto folder = folderEntry(url); folder && !folder->isList) return folder->path;
    const auto path = localPath(url);
    return path ? std::optional(QFileInfo(*path).absolutePath()) : std::nullopt;
}

void PlaylistPane::lookAgain()
{
    for (const int row : selectedRows())
        lookAgainAt(row);
}

void PlaylistPane::lookAgainAt(int row)
{
    m_reader.forget(m_table.entry(row).url);
    m_look.start(0);
}

// What is added anew is looked into anew: it may be back.
void PlaylistPane::takeAdded(int first)
{
    for (int row = first; row < m_table.rowCount(); ++row)
        m_reader.forgetFault(m_table.entry(row).url);
    showFrom(first);
}

void PlaylistPane::showHint()
{
    m_hint->setVisible(m_model.playList().entries().isEmpty());
    m_hint->setGeometry(m_view.viewport()->rect());
}

void PlaylistPane::showFrom(int first)
{
    const int last = m_table.rowCount() - 1;
    if (first > last) return;
    m_view.selectRows(first, last);
    m_view.setFocus();
}

// The row that the keys would start from looks like the selected one: it is. What could not be opened last
// time may be back.
void PlaylistPane::begin()
{
    m_reader.forgetFaults();
    m_view.selectRowAlone(std::max(m_view.currentIndex().row(), 0));
}

bool PlaylistPane::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::Show) m_look.start(0);
    if (event->type() == QEvent::Resize) showHint();
    if (event->type() == QEvent::Show && !event->spontaneous()) begin();
    if (event->type() == QEvent::FontChange)
        m_view.verticalHeader()->setDefaultSectionSize(PlaylistDelegate::rowHeight(m_view.fontMetrics()));
    return QObject::eventFilter(watched, event);
}

void PlaylistPane::readRowsInSight()
{
    QList<QUrl> urls;
    const int first = m_view.isVisible() ? m_view.rowAt(0) : -1;
    const int below = m_view.rowAt(m_view.viewport()->height() - 1);
    const int last = below < 0 ? m_table.rowCount() - 1 : below;
    for (int row = std::max(first, 0); first >= 0 && row <= last; ++row)
        if (const QUrl& url = m_table.entry(row).url; EntryText::hasMovie(url)) urls.append(url);
    m_reader.want(urls);
}

} // namespace kestro
