#pragma once

#include "trailers/panel/SortDescriptor.h"

#include <QAbstractTableModel>
#include <QStringList>

#include <optional>

namespace kestro {

class TrailerList;

/// The list of trailers as the rows of a table, in the list's order as it was at the last reload. It copies
/// no record: each is asked for when it is shown. Owned by the panel; the list must outlive it. Main thread.
class TrailerTableModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { Sel, Url, Size, Date, ColumnCount };
    /// Answers the value itself, as objectValue does, where other roles answer how it is shown.
    static constexpr int ObjectValueRole = Qt::UserRole;

    explicit TrailerTableModel(TrailerList& list, QObject* parent = nullptr);

    /// Takes on the list as it is now.
    void reload();
    /// The URL strings, by row.
    [[nodiscard]] const QStringList& urls() const { return m_urls; }

    /// "SEL", "URL", "SIZE", "DATE".
    [[nodiscard]] static QString identifier(int column);
    /// By which a click on the column's header sorts first; nothing where it does not sort.
    [[nodiscard]] static std::optional<SortDescriptor> sortDescriptorPrototype(int column);
    /// What the column of that identifier holds for the row's trailer, a date as a QDateTime at midnight,
    /// local time; an invalid variant for nothing.
    [[nodiscard]] QVariant tableViewObjectValueForTableColumnRow(const QString& column, int row) const;
    /// Keeps the value in the row's record, in the column "SEL"; nothing in any other column or outside the
    /// rows.
    void tableViewSetObjectValueForTableColumnRow(const QVariant& value, const QString& column, int row);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    [[nodiscard]] static QString meaningOfTick();
    [[nodiscard]] QVariant toolTip(const QModelIndex& index) const;
    [[nodiscard]] QString spokenTick(const QModelIndex& index) const;
    [[nodiscard]] QVariant shown(int column, int row) const;

    TrailerList& m_list;
    QStringList m_urls; ///< shared with the list
};

} // namespace kestro
