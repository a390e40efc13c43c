#pragma once

#include <QAbstractTableModel>
#include <QColor>

namespace kestro {

class ThemeBrowser;

/// The theme movies as the rows of a table: the theme each belongs to, its path, and whether it is
/// recommended. Owned by the panel. Main thread. Tested by ThemePanelTest.
class ThemeTableModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { ThemeColumn, PathColumn, RecommendedColumn, columnTotal };

    /// `browser` outlives the model.
    explicit ThemeTableModel(const ThemeBrowser& browser, QObject* parent = nullptr);

    /// Reads the browser's list anew.
    void reload();
    /// The text colour of recommended rows; the others have the table's own.
    void setRecommendedColour(const QColor& colour);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    [[nodiscard]] QString text(const QModelIndex& index) const;
    [[nodiscard]] QString description(int row) const;

    const ThemeBrowser& m_browser;
    QColor m_recommendedColour;
};

/// The name of the theme that a movie belongs to, from the name of its folder: "0010_Anime_Pop.theme" is
/// "Anime Pop". The file's own name where no folder is a theme's.
[[nodiscard]] QString themeName(const QString& path);

} // namespace kestro
