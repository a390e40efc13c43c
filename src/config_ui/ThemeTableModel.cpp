#include "config_ui/ThemeTableModel.h"

#include "config_ui/ThemeBrowser.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace kestro {

QString themeName(const QString& path)
{
    static const QRegularExpression folder(QStringLiteral(R"(/(?:\d+_)?([^/]+)\.theme/)"));
    const QRegularExpressionMatch match = folder.match(path);
    const QString name = match.hasMatch() ? match.captured(1) : QFileInfo(path).completeBaseName();
    return QString(name).replace(u'_', u' ');
}

ThemeTableModel::ThemeTableModel(const ThemeBrowser& browser, QObject* parent)
    : QAbstractTableModel(parent)
    , m_browser(browser)
    , m_recommendedColour(Qt::red)
{
}

void ThemeTableModel::reload()
{
    beginResetModel();
    endResetModel();
}

void ThemeTableModel::setRecommendedColour(const QColor& colour)
{
    if (m_recommendedColour == colour) return;
    m_recommendedColour = colour;
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnTotal - 1), {Qt::ForegroundRole});
}

int ThemeTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_browser.themeList().size());
}

int ThemeTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : columnTotal;
}

QVariant ThemeTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) return {};
    const ThemeRecord& record = m_browser.themeList()[index.row()];
    switch (role) {
    case Qt::DisplayRole:
        return text(index);
    case Qt::ForegroundRole:
        return record.isRecommended ? QVariant(m_recommendedColour) : QVariant();
    case Qt::ToolTipRole:
        return record.path;
    case Qt::AccessibleTextRole:
        return index.column() == RecommendedColumn ? QVariant(description(index.row())) : QVariant();
    case Qt::TextAlignmentRole:
        return index.column() == RecommendedColumn ? QVariant(Qt::AlignCenter) : QVariant();
    default:
        return {};
    }
}

QString ThemeTableModel::text(const QModelIndex& index) const
{
    const ThemeRecord& record = m_browser.themeList()[index.row()];
    if (index.column() == ThemeColumn) return themeName(record.path);
    if (index.column() == PathColumn) return record.path;
    return record.isRecommended ? QStringLiteral("\u2713") : QString();
}

QString ThemeTableModel::description(int row) const
{
    return m_browser.themeList()[row].isRecommended ? tr("Recommended") : tr("Not recommended");
}

QVariant ThemeTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    switch (section) {
    case ThemeColumn:
        return tr("Theme");
    case PathColumn:
        return tr("Movie");
    case RecommendedColumn:
        return tr("Recommended");
    default:
        return {};
    }
}

} // namespace kestro
