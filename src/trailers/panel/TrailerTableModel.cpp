#include "trailers/panel/TrailerTableModel.h"

#include "platform/base/Log.h"
#include "platform/base/StoredValue.h"
#include "trailers/TrailerList.h"

#include <QDateTime>
#include <QLocale>

#include <array>

namespace kestro {

namespace {

const std::array<QString, TrailerTableModel::ColumnCount> identifiers{
    QStringLiteral("SEL"), QStringLiteral("URL"), QStringLiteral("SIZE"), QStringLiteral("DATE")};

// Midnight of the day that "2006/09/01" names; nothing for a text that names none.
QVariant calendarDate(const std::optional<QString>& text)
{
    const QStringList parts = text.value_or(QString()).split(u'/');
    if (parts.size() < 3) return {};
    const QDate day(intValue(parts[0]), intValue(parts[1]), intValue(parts[2]));
    return day.isValid() ? QVariant(day.startOfDay()) : QVariant();
}

QVariant optionalText(const std::optional<QString>& text)
{
    return text ? QVariant(*text) : QVariant();
}

Qt::CheckState checkState(const QVariant& stored)
{
    return intValue(stored) != 0 ? Qt::Checked : Qt::Unchecked;
}

} // namespace

TrailerTableModel::TrailerTableModel(TrailerList& list, QObject* parent)
    : QAbstractTableModel(parent)
    , m_list(list)
{
}

void TrailerTableModel::reload()
{
    beginResetModel();
    m_urls = m_list.scanedURLList().value_or(QStringList());
    endResetModel();
}

QString TrailerTableModel::identifier(int column)
{
    return identifiers.at(static_cast<std::size_t>(column));
}

std::optional<SortDescriptor> TrailerTableModel::sortDescriptorPrototype(int column)
{
    if (column == Url) return SortDescriptor{QStringLiteral("URL"), true};
    if (column == Date) return SortDescriptor{QStringLiteral("Date"), false};
    return {};
}

QVariant TrailerTableModel::tableViewObjectValueForTableColumnRow(const QString& column, int row) const
{
    if (row < 0 || row >= m_urls.size()) return {};
    if (column == identifier(Url)) return m_urls[row];
    const auto record = m_list.record(m_urls[row]);
    if (!record) return {};
    if (column == identifier(Sel)) return record->other.value(QStringLiteral("Sel"));
    if (column == identifier(Size)) return optionalText(record->size);
    if (column == identifier(Date)) return calendarDate(record->date);
    return {};
}

void TrailerTableModel::tableViewSetObjectValueForTableColumnRow(const QVariant& value, const QString& column,
                                                                 int row)
{
    if (column != identifier(Sel) || row < 0 || row >= m_urls.size()) return;
    logLine(QStringLiteral("object class = %1").arg(QLatin1StringView(value.typeName())));
    m_list.setSel(m_urls[row], value);
    const QModelIndex changed = index(row, Sel);
    Q_EMIT dataChanged(changed, changed);
}

int TrailerTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_urls.size());
}

int TrailerTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant TrailerTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) return {};
    switch (role) {
    case ObjectValueRole:
        return tableViewObjectValueForTableColumnRow(identifier(index.column()), index.row());
    case Qt::DisplayRole:
        return shown(index.column(), index.row());
    case Qt::CheckStateRole:
        return index.column() == Sel ? QVariant(checkState(index.data(ObjectValueRole))) : QVariant();
    case Qt::AccessibleTextRole:
        return index.column() == Sel ? QVariant(spokenTick(index)) : QVariant();
    case Qt::ToolTipRole:
        return toolTip(index);
    default:
        return {};
    }
}

QString TrailerTableModel::meaningOfTick()
{
    return tr("A mark of your own: it is kept with the trailer, and changes nothing else");
}

QVariant TrailerTableModel::toolTip(const QModelIndex& index) const
{
    if (index.column() == Sel) return meaningOfTick();
    return index.column() == Url ? index.data(ObjectValueRole) : QVariant();
}

QString TrailerTableModel::spokenTick(const QModelIndex& index) const
{
    return checkState(index.data(ObjectValueRole)) == Qt::Checked ? tr("Ticked") : tr("Not ticked");
}

QVariant TrailerTableModel::shown(int column, int row) const
{
    if (column == Sel) return {};
    const QVariant value = tableViewObjectValueForTableColumnRow(identifier(column), row);
    if (column != Date || !value.isValid()) return value;
    return QLocale().toString(value.toDate(), QLocale::ShortFormat);
}

bool TrailerTableModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!index.isValid() || index.column() != Sel || role != Qt::CheckStateRole) return false;
    const bool isChecked = value.toInt() == Qt::Checked;
    tableViewSetObjectValueForTableColumnRow(isChecked, identifier(Sel), index.row());
    return true;
}

QVariant TrailerTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::ToolTipRole && section == Sel) return meaningOfTick();
    if (role != Qt::DisplayRole) return {};
    const std::array<QString, ColumnCount> titles{tr("SEL"), tr("URL"), tr("SIZE"), tr("DATE")};
    return titles.at(static_cast<std::size_t>(section));
}

Qt::ItemFlags TrailerTableModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags plain = QAbstractTableModel::flags(index) | Qt::ItemNeverHasChildren;
    return index.isValid() && index.column() == Sel ? plain | Qt::ItemIsUserCheckable : plain;
}

} // namespace kestro
