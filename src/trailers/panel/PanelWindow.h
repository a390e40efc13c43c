#pragma once

#include <QList>
#include <QWidget>

#include <memory>

namespace Ui {
class TrailerCont;
}

namespace kestro {

class TrailerTableModel;
struct SortDescriptor;

/// The browser's window: its controls and what they show, without any of what they do. Owned by the panel;
/// the model must outlive it. Main thread. Tested by PanelSaveTest.
class PanelWindow final : public QWidget {
    Q_OBJECT

public:
    explicit PanelWindow(TrailerTableModel& model);
    ~PanelWindow() override;

    [[nodiscard]] Ui::TrailerCont& controls() { return *m_ui; }

    /// Whether a crawl of the panel's runs.
    void showScanning(bool isScanning);
    /// How the last crawl ended, in a short line, and more of it where the pointer rests; takes notes away.
    void showEndOfScan(const QString& line, const QString& details);
    /// Why so little came of it, in a line of its own.
    void showNotes(const QString& notes);
    void showState(qsizetype selected, qsizetype count);
    /// The column of the last choice, the first of `chosen`, is marked with its direction; none without one.
    void showSorting(const QList<SortDescriptor>& chosen);

Q_SIGNALS:
    void windowWillClose();
    /// A column was chosen to sort by.
    void columnSelected(int column);

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setUpButtons();
    void addShortcuts();
    void addMenu();

    std::unique_ptr<Ui::TrailerCont> m_ui;
    bool m_isScanning = false;
    bool m_wasStopClicked = false; ///< at the last click of the button that scans and stops
};

} // namespace kestro
