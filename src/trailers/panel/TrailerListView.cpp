#include "trailers/panel/TrailerListView.h"

#include "trailers/panel/TrailerTableModel.h"

#include <QDate>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLocale>
#include <QScrollBar>
#include <QSet>

#include <algorithm>
#include <utility>

namespace kestro {

namespace {

// The longest contents that are usual; the address takes what they leave.
const QString widestSize = QStringLiteral("88888 x 88888");
const QDate widestDate(2008, 12, 28);

QItemSelection wholeRows(const TrailerTableModel& model, const QSet<QString>& urls)
{
    QItemSelection selection;
    const QStringList& rows = model.urls();
    for (int row = 0; row < rows.size(); ++row) {
        const int first = row;
        while (row < rows.size() && urls.contains(rows[row]))
            ++row;
        if (row == first) continue;
        selection.append(QItemSelectionRange(model.index(first, 0),
                                             model.index(row - 1, TrailerTableModel::ColumnCount - 1)));
    }
    return selection;
}

} // namespace

/// What a person looks at, by URL; null and empty for nothing.
struct TrailerListView::Place {
    QSet<QString> selected;
    QString current;
    QString top;
    int column = 0;
};

TrailerListView::TrailerListView(QWidget* parent)
    : QTableView(parent)
{
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setTextElideMode(Qt::ElideMiddle);
    setVerticalScrollMode(ScrollPerItem);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setSortIndicatorShown(true);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    connect(this, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
        if (index.column() != TrailerTableModel::Sel) Q_EMIT doubleAction();
    });
}

void TrailerListView::showModel(TrailerTableModel& model)
{
    m_model = &model;
    setModel(&model);
    horizontalHeader()->setSectionResizeMode(TrailerTableModel::Url, QHeaderView::Stretch);
    sizeColumns();
}

void TrailerListView::sizeColumns()
{
    const auto room = [this](const QString& text) {
        return fontMetrics().horizontalAdvance(text) + 3 * fontMetrics().averageCharWidth();
    };
    QHeaderView& header = *horizontalHeader();
    const auto atLeast = [&](int column, int width) {
        header.resizeSection(column, std::max(width, header.sectionSizeHint(column)));
    };
    atLeast(TrailerTableModel::Sel, 0);
    atLeast(TrailerTableModel::Size, room(widestSize));
    atLeast(TrailerTableModel::Date, room(QLocale().toString(widestDate, QLocale::ShortFormat)));
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
}

void TrailerListView::reloadData()
{
    const Place before = place();
    m_isReloading = true;
    m_model->reload();
    restore(before);
    m_isReloading = false;
    if (selectedRows().size() != before.selected.size()) Q_EMIT tableViewSelectionDidChange();
}

TrailerListView::Place TrailerListView::place() const
{
    Place place;
    const QStringList& urls = m_model->urls();
    for (const int row : selectedRows())
        place.selected.insert(urls[row]);
    place.current = urls.value(currentIndex().row());
    place.column = std::max(0, currentIndex().column());
    if (verticalScrollBar()->value() > 0) place.top = urls.value(rowAt(0));
    return place;
}

void TrailerListView::restore(const Place& place)
{
    const QStringList& urls = m_model->urls();
    const auto current = place.current.isNull() ? -1 : urls.indexOf(place.current);
    if (current >= 0)
        selectionModel()->setCurrentIndex(m_model->index(static_cast<int>(current), place.column),
                                          QItemSelectionModel::NoUpdate);
    if (!place.selected.isEmpty())
        selectionModel()->select(wholeRows(*m_model, place.selected), QItemSelectionModel::ClearAndSelect);
    const auto top = place.top.isNull() ? -1 : urls.indexOf(place.top);
    if (top < 0) return scrollToTop();
    executeDelayedItemsLayout(); // the scroll bar knows of all rows then
    verticalScrollBar()->setValue(static_cast<int>(top));
}

QList<int> TrailerListView::selectedRows() const
{
    QList<int> rows;
    if (!selectionModel()) return rows;
    for (const QItemSelectionRange& range : selectionModel()->selection())
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.append(row);
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

std::optional<int> TrailerListView::selectedRow() const
{
    const QList<int> rows = selectedRows();
    if (rows.isEmpty()) return {};
    const int current = currentIndex().row();
    return std::binary_search(rows.begin(), rows.end(), current) ? current : rows.front();
}

void TrailerListView::selectRowAlone(int row)
{
    const QModelIndex index = m_model->index(row, std::max(0, currentIndex().column()));
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(index);
}

void TrailerListView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    QTableView::selectionChanged(selected, deselected);
    if (!m_isReloading) Q_EMIT tableViewSelectionDidChange();
}

void TrailerListView::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const QModelIndex current = currentIndex();
    if (!isReturn || !current.isValid()) return QTableView::keyPressEvent(event);
    // The focus may have come to a row without selecting it.
    if (!selectionModel()->isRowSelected(current.row())) selectRowAlone(current.row());
    Q_EMIT doubleAction();
}

void TrailerListView::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    const bool isFont = event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange;
    if (isFont && m_model) sizeColumns();
}

} // namespace kestro
