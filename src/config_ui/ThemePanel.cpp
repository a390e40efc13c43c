#include "config_ui/ThemePanel.h"

#include "platform/movie/MovieLibrary.h"
#include "platform/movie/NSMovie.h"
#include "platform/movie/QTMovie.h"
#include "ui_ThemePanel.h"
#include "widgets/ControllerBar.h"
#include "widgets/MoviePreview.h"
#include "widgets/WindowPlace.h"

#include <QHeaderView>
#include <QPushButton>
#include <QScreen>
#include <QShowEvent>
#include <QStyle>

namespace kestro {

namespace {

constexpr int tableCharacters = 96; ///< that the table shows beside the preview

/// A red that stands out from the table's ground, whether that is light or dark.
QColor recommendedColour(const QPalette& palette)
{
    const bool isDark = palette.color(QPalette::Base).lightness() < 128;
    return isDark ? QColor(255, 112, 104) : QColor(196, 0, 0);
}

} // namespace

ThemePanel::ThemePanel(URLListReceiver& playlist, MovieLibrary& movies, QWidget* parent,
                       const SurfaceServices& services)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::ThemePanel>())
    , m_browser(playlist)
    , m_movies(movies)
    , m_themeMovieView(new MoviePreview(this, services))
{
    m_ui->setupUi(this);
    new WindowPlace(*this);
    setWindowModality(Qt::ApplicationModal);
    m_themeMovieView->setAccessibleName(tr("Preview of the selected movie"));
    m_themeMovieView->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    m_themeMovieView->controller().hide(); // the buttons below it are the controls
    m_ui->previewPlace->addWidget(m_themeMovieView);
    setUpTable();
    setUpButtons();
    colourRows();
    showWhatCanBeDone();
}

// The widgets outlive the members that they look at.
ThemePanel::~ThemePanel()
{
    m_ui->themeTable->removeEventFilter(this);
    m_ui->themeTable->setModel(nullptr);
}

void ThemePanel::setUpTable()
{
    QTableView& table = *m_ui->themeTable;
    table.setModel(&m_rows);
    table.installEventFilter(this);
    QHeaderView& header = *table.horizontalHeader();
    header.setSectionResizeMode(ThemeTableModel::ThemeColumn, QHeaderView::ResizeToContents);
    header.setSectionResizeMode(ThemeTableModel::PathColumn, QHeaderView::Stretch);
    header.setSectionResizeMode(ThemeTableModel::RecommendedColumn, QHeaderView::ResizeToContents);
    header.setHighlightSections(false);
    table.verticalHeader()->setDefaultSectionSize(table.verticalHeader()->minimumSectionSize());
    connect(table.selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ThemePanel::previewSelection);
    connect(&table, &QTableView::doubleClicked, this, &ThemePanel::selectIDVDTheme);
}

void ThemePanel::setUpButtons()
{
    connect(m_ui->playButton, &QPushButton::clicked, this, &ThemePanel::selectIDVDTheme);
    connect(m_ui->stopButton, &QPushButton::clicked, this, &ThemePanel::stopTheme);
    connect(m_ui->buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_ui->buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    m_addButton = m_ui->buttons->button(QDialogButtonBox::Ok);
    m_addButton->setText(tr("&Add"));
    m_addButton->setObjectName(QStringLiteral("addButton"));
    m_addButton->setDefault(true);
    connect(m_themeMovieView, &MoviePreview::movieFailed, this, &ThemePanel::showWhatCanBeDone);
}

void ThemePanel::showIDVDThemes()
{
    const auto before = m_browser.themeList().size();
    m_browser.showIDVDThemes();
    if (m_browser.themeList().size() != before) m_rows.reload();
    if (m_browser.themeList().isEmpty()) m_ui->explanation->setText(tr("No theme movies were found."));
    selectFirstRow();
    m_ui->themeTable->setFocus();
    show();
}

// What the keys start from looks like it.
void ThemePanel::selectFirstRow()
{
    if (m_rows.rowCount() == 0 || m_ui->themeTable->selectionModel()->hasSelection()) return;
    m_ui->themeTable->selectionModel()->setCurrentIndex(
        m_rows.index(0, 0), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void ThemePanel::closeIDVDThemesPanel(int tag)
{
    m_browser.closeIDVDThemesPanel(tag, selectedRows());
    QDialog::done(tag == 0 ? Rejected : Accepted);
}

// Whatever closes the panel, the key for it and the window's own button included.
void ThemePanel::done(int result)
{
    closeIDVDThemesPanel(result == Accepted ? 1 : 0);
}

void ThemePanel::selectIDVDTheme()
{
    m_themeMovieView->start();
}

void ThemePanel::stopTheme()
{
    m_themeMovieView->stop();
}

QList<int> ThemePanel::selectedRows() const
{
    QList<int> rows;
    for (const QModelIndex& index : m_ui->themeTable->selectionModel()->selectedRows())
        rows.append(index.row());
    return rows;
}

// Of several selected movies it is the one that was selected last. One that stays selected while others come
// and go plays on.
void ThemePanel::previewSelection(const QItemSelection& selected)
{
    const QList<int> rows = selectedRows();
    if (!rows.isEmpty()) {
        const int current = m_ui->themeTable->currentIndex().row();
        const int row = rows.contains(current) ? current : rows.last();
        const QUrl url = m_browser.movieURL(row);
        const bool isShown = hasMovie() && m_themeMovieView->movie()->url() == url;
        if (!isShown || selected.contains(m_rows.index(row, 0)))
            m_themeMovieView->setMovie(NSMovie(m_movies.movieWithURL(url)));
        selectIDVDTheme();
    }
    showWhatCanBeDone();
}

bool ThemePanel::hasMovie() const
{
    const auto& shown = m_themeMovieView->movie();
    return shown && shown->state() != QTMovie::State::Failed;
}

void ThemePanel::showWhatCanBeDone()
{
    m_ui->playButton->setEnabled(hasMovie());
    m_ui->stopButton->setEnabled(hasMovie());
    m_addButton->setEnabled(!selectedRows().isEmpty());
}

void ThemePanel::colourRows()
{
    m_rows.setRecommendedColour(recommendedColour(m_ui->themeTable->palette()));
}

// The table's palette follows the panel's, and the desktop's, on its own.
bool ThemePanel::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_ui->themeTable && event->type() == QEvent::PaletteChange) colourRows();
    return QDialog::eventFilter(watched, event);
}

void ThemePanel::fitToScreen()
{
    const QSize room =
        screen()->availableSize() - QSize(0, 2 * style()->pixelMetric(QStyle::PM_TitleBarHeight));
    const int tableWidth = fontMetrics().averageCharWidth() * tableCharacters;
    const QSize best(tableWidth * 5 / 3, tableWidth * 3 / 4);
    resize(best.expandedTo(minimumSizeHint()).boundedTo(room));
}

void ThemePanel::showEvent(QShowEvent* event)
{
    if (!testAttribute(Qt::WA_Resized)) fitToScreen();
    QDialog::showEvent(event);
}

} // namespace kestro
