#include "trailers/panel/PanelWindow.h"

#include "trailers/panel/TrailerTableModel.h"
#include "ui_TrailerCont.h"
#include "widgets/WindowPlace.h"

#include <QAction>
#include <QScreen>
#include <QShortcut>

namespace kestro {

namespace {

constexpr double shareOfScreen = 0.9; // at most

} // namespace

PanelWindow::PanelWindow(TrailerTableModel& model)
    : QWidget(nullptr, Qt::Window)
    , m_ui(std::make_unique<Ui::TrailerCont>())
{
    m_ui->setupUi(this);
    new WindowPlace(*this);
    resize(size().boundedTo(screen()->availableSize() * shareOfScreen));
    m_ui->listView->showModel(model);
    connect(m_ui->listView->horizontalHeader(), &QHeaderView::sectionClicked, this,
            &PanelWindow::columnSelected);
    setUpButtons();
    addShortcuts();
    addMenu();
    m_ui->scanBtn->installEventFilter(this);
    connect(m_ui->scanBtn, &QPushButton::clicked, this, [this] { m_wasStopClicked = m_isScanning; });
    showScanning(false);
    showEndOfScan({}, {});
}

PanelWindow::~PanelWindow() = default;

void PanelWindow::setUpButtons()
{
    QDialogButtonBox& box = *m_ui->buttons;
    box.addButton(m_ui->clearBtn, QDialogButtonBox::ResetRole);
    QPushButton* const closeBtn = box.button(QDialogButtonBox::Close);
    closeBtn->setText(tr("Cl&ose")); // that of the desktop might have the letter of another button
    connect(&box, &QDialogButtonBox::rejected, this, &QWidget::close);
    // Return presses the button that has the focus, as in a dialog.
    for (QPushButton* button : findChildren<QPushButton*>())
        button->setAutoDefault(true);
}

void PanelWindow::addShortcuts()
{
    const auto onKey = [this](const QKeySequence& key, auto action) {
        connect(new QShortcut(key, this), &QShortcut::activated, this, action);
    };
    onKey(QKeySequence::Close, [this] { close(); });
    onKey(Qt::Key_Escape, [this] { close(); });
    onKey(QKeySequence::Find, [this] {
        m_ui->findField->setFocus();
        m_ui->findField->selectAll();
    });
    onKey(QKeySequence::FindNext, [this] { Q_EMIT m_ui->findField->returnPressed(); });
}

// What the buttons and the header do, where the keyboard finds it as well.
void PanelWindow::addMenu()
{
    TrailerListView* list = m_ui->listView;
    for (QPushButton* button : {m_ui->previewBtn, m_ui->saveBtn, m_ui->addBtn}) {
        auto* action = new QAction(button->text(), list);
        connect(action, &QAction::triggered, button, &QPushButton::click);
        list->addAction(action);
    }
    auto* separator = new QAction(list);
    separator->setSeparator(true);
    list->addAction(separator);
    const auto addSorting = [&](const QString& text, int column) {
        auto* action = new QAction(text, list);
        connect(action, &QAction::triggered, this, [this, column] { Q_EMIT columnSelected(column); });
        list->addAction(action);
    };
    addSorting(tr("Sort by &URL"), TrailerTableModel::Url);
    addSorting(tr("Sort by D&ate"), TrailerTableModel::Date);
    list->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void PanelWindow::showScanning(bool isScanning)
{
    m_isScanning = isScanning;
    m_ui->scanBtn->setText(isScanning ? tr("Stop") : tr("Scan"));
    m_ui->progress->setVisible(isScanning);
    if (isScanning) showEndOfScan({}, {});
}

void PanelWindow::showEndOfScan(const QString& line, const QString& details)
{
    m_ui->scanEnd->setText(line);
    m_ui->scanEnd->setToolTip(details);
    showNotes({});
}

void PanelWindow::showNotes(const QString& notes)
{
    m_ui->scanNotes->setText(notes);
    m_ui->scanNotes->setHidden(notes.isEmpty());
}

void PanelWindow::showState(qsizetype selected, qsizetype count)
{
    m_ui->stateField->setText(QStringLiteral("%1/%2").arg(selected).arg(count));
    for (QPushButton* button : {m_ui->previewBtn, m_ui->saveBtn, m_ui->addBtn})
        button->setEnabled(selected > 0);
    for (QAction* action : m_ui->listView->actions().first(3))
        action->setEnabled(selected > 0);
}

void PanelWindow::showSorting(const QList<SortDescriptor>& chosen)
{
    const SortDescriptor by = chosen.value(0);
    int marked = -1;
    for (int column = 0; column < TrailerTableModel::ColumnCount; ++column) {
        const auto prototype = TrailerTableModel::sortDescriptorPrototype(column);
        if (prototype && prototype->key == by.key) marked = column;
    }
    m_ui->listView->horizontalHeader()->setSortIndicator(marked, by.ascending ? Qt::AscendingOrder
                                                                              : Qt::DescendingOrder);
}

// The second half of a double click on Stop would begin the next crawl.
bool PanelWindow::eventFilter(QObject* watched, QEvent* event)
{
    const bool isSecondHalf = watched == m_ui->scanBtn && event->type() == QEvent::MouseButtonDblClick;
    return (isSecondHalf && m_wasStopClicked) || QWidget::eventFilter(watched, event);
}

void PanelWindow::closeEvent(QCloseEvent* event)
{
    Q_EMIT windowWillClose();
    QWidget::closeEvent(event);
}

} // namespace kestro
