#pragma once

#include "config_ui/ThemeBrowser.h"
#include "config_ui/ThemeTableModel.h"
#include "widgets/WidgetDesktop.h"

#include <QDialog>

#include <memory>

class QItemSelection;
class QPushButton;

namespace Ui {
class ThemePanel;
}

namespace kestro {

class MovieLibrary;
class MoviePreview;

/// The theme browser's panel ("themePanel"), modal to the whole program: the theme movies in a table, the
/// selected one beside it in motion from its beginning; the first is selected when nothing else is. Several
/// can be added at once. Owned by the sheet. Main thread.
class ThemePanel final : public QDialog {
    Q_OBJECT

public:
    /// `playlist` takes what is added, `movies` opens what is looked at; both outlive the panel.
    ThemePanel(URLListReceiver& playlist, MovieLibrary& movies, QWidget* parent,
               const SurfaceServices& services = SurfaceServices::real());
    ~ThemePanel() override;

    /// Shows the panel; the movies are looked for the first time only.
    void showIDVDThemes();
    /// Adds the selected movies (`tag` not 0) or none (0), and closes the panel. What plays goes on playing.
    void closeIDVDThemesPanel(int tag);

    /// Plays the movie in the preview on; from its beginning at its end.
    void selectIDVDTheme();
    /// Stops it where it is.
    void stopTheme();

    [[nodiscard]] ThemeBrowser& browser() { return m_browser; }
    [[nodiscard]] MoviePreview& themeMovieView() { return *m_themeMovieView; }

    void done(int result) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void setUpTable();
    void setUpButtons();
    void fitToScreen();
    void previewSelection(const QItemSelection& selected);
    void selectFirstRow();
    void showWhatCanBeDone();
    [[nodiscard]] bool hasMovie() const;
    void colourRows();
    [[nodiscard]] QList<int> selectedRows() const;

    std::unique_ptr<Ui::ThemePanel> m_ui;
    ThemeBrowser m_browser;
    ThemeTableModel m_rows{m_browser};
    MovieLibrary& m_movies;
    MoviePreview* m_themeMovieView; ///< Qt's parent owns it and the button
    QPushButton* m_addButton = nullptr;
};

} // namespace kestro
