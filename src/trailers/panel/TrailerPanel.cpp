#include "trailers/panel/TrailerPanel.h"

#include "platform/base/FileReplacement.h"
#include "platform/base/Log.h"
#include "platform/network/Fetch.h"
#include "settings/URLListReceiver.h"
#include "trailers/panel/LatestPanel.h"
#include "trailers/panel/PanelWindow.h"
#include "trailers/panel/PreviewWindow.h"
#include "trailers/panel/RowSearch.h"
#include "trailers/panel/SaveTrailer.h"
#include "trailers/panel/ScanEndText.h"
#include "trailers/panel/TrailerDownload.h"
#include "ui_TrailerCont.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QMessageBox>

namespace kestro {

namespace {

QString message(const char* text)
{
    return QCoreApplication::translate("Kestro", text);
}

// None until a person chooses one, though the list is by date from the beginning: the first click on that
// column chooses its own direction, the second reverses it.
QList<SortDescriptor> chosenOrder(const TrailerList& list)
{
    const TrailerOrder order = list.order();
    return order.sortKey.isNull() ? QList<SortDescriptor>()
                                  : QList{SortDescriptor{order.sortKey, order.ascending}};
}

QList<QUrl> urlsOf(const QStringList& urls, const QList<int>& rows)
{
    QList<QUrl> made;
    for (const int row : rows)
        if (const QUrl url(urls.value(row)); url.isValid()) made.append(url);
    return made;
}

} // namespace

TrailerPanel::TrailerPanel(TrailerCont& controller, MovieLibrary& movies, const SurfaceServices& services)
    : m_controller(controller)
    , m_configuredSite(controller.site())
    , m_model(controller.list())
    , m_panel(std::make_unique<PanelWindow>(m_model))
    , m_previewWin(std::make_unique<PreviewWindow>(movies, services))
    , m_latestPanel(std::make_unique<LatestPanel>(m_panel.get()))
    , m_makeFetch(TrailerDownload::movieFetch)
    , m_reloads(services, [this] { showList(); })
    , m_sortDescriptors(chosenOrder(controller.list()))
{
    awakeFromNib();
    m_controller.setObserver(this);
    showList();
}

TrailerPanel::~TrailerPanel()
{
    m_controller.setObserver(nullptr);
    if (m_isScanning) m_controller.stopThreading();
}

void TrailerPanel::awakeFromNib()
{
    Ui::TrailerCont& controls = m_panel->controls();
    controls.urlField->setText(m_configuredSite.start);
    m_panel->showSorting(m_sortDescriptors);
    connect(controls.listView, &TrailerListView::doubleAction, this, &TrailerPanel::preview);
    connect(controls.listView, &TrailerListView::tableViewSelectionDidChange, this,
            &TrailerPanel::tableViewSelectionDidChange);
    connect(m_panel.get(), &PanelWindow::columnSelected, this,
            &TrailerPanel::tableViewSortDescriptorsDidChange);
    connect(m_panel.get(), &PanelWindow::windowWillClose, this, &TrailerPanel::panelWillClose);
    connect(m_previewWin.get(), &PreviewWindow::movieFailed, this, &TrailerPanel::alertNoMovie);
    connect(controls.urlField, &QLineEdit::textChanged, this, &TrailerPanel::siteWasEdited);
    connect(controls.findField, &QLineEdit::returnPressed, this, &TrailerPanel::findNext);
    connect(controls.urlField, &QLineEdit::returnPressed, this, [this] {
        if (!m_controller.onThreading()) scan();
    });
    connect(controls.scanBtn, &QPushButton::clicked, this, &TrailerPanel::scan);
    connect(controls.clearBtn, &QPushButton::clicked, this, &TrailerPanel::clear);
    connect(controls.previewBtn, &QPushButton::clicked, this, &TrailerPanel::preview);
    connect(controls.saveBtn, &QPushButton::clicked, this, &TrailerPanel::saveURL);
    connect(controls.addBtn, &QPushButton::clicked, this, &TrailerPanel::addURL);
    connect(controls.latestBtn, &QPushButton::clicked, this, &TrailerPanel::addLatest);
}

void TrailerPanel::showPanel(URLListReceiver& saver)
{
    setSaver(&saver);
    m_wasShown = true;
    m_panel->show();
    m_panel->raise();
    m_panel->activateWindow();
}

void TrailerPanel::close()
{
    setSaver(nullptr);
    if (m_wasShown) m_panel->close();
}

void TrailerPanel::panelWillClose()
{
    m_controller.stopThreading();
    m_controller.list().saveList();
    m_previewWin->close();
}

void TrailerPanel::reloadTableView()
{
    m_reloads.request();
}

void TrailerPanel::showList()
{
    m_panel->controls().listView->reloadData();
    updateStateField();
}

void TrailerPanel::stopProgress()
{
    m_reloads.finish();
    m_isScanning = false;
    m_panel->showScanning(false);
    const ScanEnd& end = m_controller.lastEnd();
    if (end.kind == ScanEnd::Kind::NoPage) logLine(end.reason);
    m_panel->showEndOfScan(ScanEndText::line(end), end.reason);
    m_panel->showNotes(ScanEndText::notes(end));
}

// A host that is configured belongs to the start that is configured.
void TrailerPanel::siteWasEdited()
{
    const QString start = m_panel->controls().urlField->text();
    m_controller.setSite(start == m_configuredSite.start ? m_configuredSite : TrailerSite{start, {}});
}

void TrailerPanel::scan()
{
    if (m_controller.onThreading()) return m_controller.stopThreading();
    m_isScanning = true;
    m_panel->showScanning(true);
    m_controller.scan();
}

// The count is that of the list as it was, until something is selected or found.
void TrailerPanel::clear()
{
    m_controller.list().clear();
    m_panel->controls().listView->reloadData();
    m_panel->showEndOfScan({}, {});
}

void TrailerPanel::tableViewSortDescriptorsDidChange(int selectedColumn)
{
    const auto prototype = TrailerTableModel::sortDescriptorPrototype(selectedColumn);
    if (const auto chosen = chosenSortDescriptor(prototype, m_sortDescriptors)) {
        m_sortDescriptors = withChosen(*chosen, m_sortDescriptors);
        m_controller.list().setSortKey(chosen->key);
        m_controller.list().setAscending(chosen->ascending);
        m_panel->controls().listView->reloadData();
    }
    m_panel->showSorting(m_sortDescriptors);
}

void TrailerPanel::updateStateField()
{
    m_panel->showState(m_panel->controls().listView->selectedRows().size(), m_controller.list().count());
}

void TrailerPanel::findNext()
{
    Ui::TrailerCont& controls = m_panel->controls();
    const auto row =
        findNextRow(m_model.urls(), controls.findField->text(), controls.listView->selectedRow());
    if (row) controls.listView->selectRowAlone(static_cast<int>(*row));
}

std::optional<QUrl> TrailerPanel::selectedURL() const
{
    const auto row = m_panel->controls().listView->selectedRow();
    return row ? std::optional(QUrl(m_model.urls().value(*row))) : std::nullopt;
}

void TrailerPanel::preview()
{
    const auto url = selectedURL();
    if (url && !m_previewWin->preview(*url)) alertNoMovie();
}

void TrailerPanel::alertNoMovie()
{
    alert(message(QT_TRANSLATE_NOOP("Kestro", "Failed to create movie.\nPlease try again.")));
}

void TrailerPanel::alert(const QString& text)
{
    QMessageBox box(QMessageBox::Warning, message(QT_TRANSLATE_NOOP("Kestro", "Alert")), text,
                    QMessageBox::NoButton, m_panel.get());
    box.setTextFormat(Qt::PlainText); // it may hold the name of a file
    box.addButton(message(QT_TRANSLATE_NOOP("Kestro", "OK")), QMessageBox::AcceptRole);
    box.exec();
}

void TrailerPanel::saveURL()
{
    const auto url = selectedURL();
    if (!url) return;
    const QString path = askWhereToSave(*url, m_panel.get());
    if (path.isEmpty()) return;
    const auto contents = TrailerDownload(m_makeFetch()).run(*url, m_panel.get());
    if (!contents) return;
    const auto saved = replaceWritableFile(path, *contents);
    if (saved) return;
    logLine(QStringLiteral("Cannot save %1: %2").arg(path, saved.error()));
    alert(message(QT_TRANSLATE_NOOP("Kestro", "Failed to save the movie as %1.\n%2"))
              .arg(QFileInfo(path).fileName(), saved.error()));
}

void TrailerPanel::addURL()
{
    const QList<int> rows = m_panel->controls().listView->selectedRows();
    if (m_saver) m_saver->addURLList(urlsOf(m_model.urls(), rows));
}

void TrailerPanel::addLatest()
{
    m_latestPanel->setResolutions(m_controller.list().frameWidths());
    const auto entry = m_latestPanel->runModal();
    if (entry && m_saver) m_saver->addURLList({*entry});
}

} // namespace kestro
