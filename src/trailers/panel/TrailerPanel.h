#pragma once

#include "settings/TrailerBrowser.h"
#include "trailers/TrailerCont.h"
#include "trailers/panel/ReloadPacer.h"
#include "trailers/panel/SortDescriptor.h"
#include "trailers/panel/TrailerTableModel.h"
#include "widgets/WidgetDesktop.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>

namespace kestro {

class LatestPanel;
class MovieLibrary;
class PanelWindow;
class PreviewWindow;

/// The browser of the scanned trailers. It owns the panel's window, the preview window and the one that asks
/// for automatic entries; shows the list of the controller, starts and stops its crawls, and gives what is
/// chosen to a receiver. When the panel closes the crawl ends, the list is saved and the preview closes.
/// Owned by the program that shows the settings; controller and movies must outlive it. Main thread.
class TrailerPanel final : public QObject, public TrailerBrowser, public TrailerObserver {
    Q_OBJECT

public:
    /// Makes what fetches a movie that is saved.
    using MakeFetch = std::function<std::unique_ptr<Fetch>()>;

    TrailerPanel(TrailerCont& controller, MovieLibrary& movies,
                 const SurfaceServices& services = SurfaceServices::real());
    ~TrailerPanel() override;

    void showPanel(URLListReceiver& saver) override;
    void close() override;
    /// Who gets what is chosen; null for nobody. Not owned.
    void setSaver(URLListReceiver* saver) { m_saver = saver; }
    void setMakeFetch(MakeFetch makeFetch) { m_makeFetch = std::move(makeFetch); }

    void reloadTableView() override;
    void stopProgress() override;

    /// Starts a crawl at the address in the field, or stops the one that runs.
    void scan();
    /// Forgets the whole list, in memory.
    void clear();
    /// Selects the next row whose URL contains what is in the find field.
    void findNext();
    /// Plays the selected trailer, in the preview window; an alert says so where it cannot be opened. Nothing
    /// where none is selected.
    void preview();
    /// Saves the movie file of the selected trailer where the user says; nothing where none is selected.
    void saveURL();
    /// Gives the selected trailers to the saver, in the table's order.
    void addURL();
    /// Asks for an automatic entry, and gives that to the saver.
    void addLatest();
    /// Sorts by the column as a click on its header does.
    void tableViewSortDescriptorsDidChange(int selectedColumn);
    void tableViewSelectionDidChange() { updateStateField(); }
    /// Shows how many rows are selected, and how many trailers there are.
    void updateStateField();

    [[nodiscard]] PanelWindow& panel() { return *m_panel; }
    [[nodiscard]] PreviewWindow& previewWin() { return *m_previewWin; }

private:
    void awakeFromNib();
    void showList();
    void panelWillClose();
    void siteWasEdited();
    void alertNoMovie();
    void alert(const QString& text);
    [[nodiscard]] std::optional<QUrl> selectedURL() const;

    TrailerCont& m_controller;
    const TrailerSite m_configuredSite;
    TrailerTableModel m_model;
    std::unique_ptr<PanelWindow> m_panel;
    std::unique_ptr<PreviewWindow> m_previewWin;
    std::unique_ptr<LatestPanel> m_latestPanel;
    MakeFetch m_makeFetch;
    ReloadPacer m_reloads;
    QList<SortDescriptor> m_sortDescriptors; ///< the last choice first
    URLListReceiver* m_saver = nullptr;
    bool m_wasShown = false;
    bool m_isScanning = false;
};

} // namespace kestro
