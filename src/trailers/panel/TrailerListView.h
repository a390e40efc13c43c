#pragma once

#include <QTableView>

#include <optional>

namespace kestro {

class TrailerTableModel;

/// The table of trailers. Its rows are chosen by whole; what is chosen stays so over a reload as long as it
/// is in the list, wherever its row went. Owned by the panel's layout. Main thread.
class TrailerListView final : public QTableView {
    Q_OBJECT

public:
    explicit TrailerListView(QWidget* parent = nullptr);

    /// To be called once; the model must outlive the view or be its child.
    void showModel(TrailerTableModel& model);
    /// Shows the list as it is now. The row at the top stays there, unless the list stands at its beginning.
    void reloadData();

    /// From the first to the last.
    [[nodiscard]] QList<int> selectedRows() const;
    /// The one that has the focus, else the first; nothing where none is selected.
    [[nodiscard]] std::optional<int> selectedRow() const;
    /// Selects the row alone and scrolls it into view.
    void selectRowAlone(int row);

Q_SIGNALS:
    void tableViewSelectionDidChange();
    /// A row was clicked twice, but not where its box is, or Return was pressed on it.
    void doubleAction();

protected:
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    struct Place;
    [[nodiscard]] Place place() const;
    void restore(const Place& place);
    void sizeColumns();

    TrailerTableModel* m_model = nullptr;
    bool m_isReloading = false;
};

} // namespace kestro
