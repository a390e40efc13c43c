#pragma once

#include "config_ui/ConfigModel.h"
#include "config_ui/ProbeWorker.h"

#include <QDialog>
#include <QSettings>

#include <memory>

class QButtonGroup;

namespace Ui {
class SSConfig;
}

namespace kestro {

class MovieLibrary;
class PlaylistMenu;
class PlaylistPane;
class SheetPanels;
class StarterPane;
class ThemePanel;
class URLPanel;

/// The configuration sheet ("configWin"): the controls of every option, the playlist and its panels, modal
/// over its parent's window. A host shows it with open(), and is told by accepted() or rejected() once the
/// settings are stored, or left alone. It can be opened again. Owned by its parent; main thread.
class ConfigSheet final : public QDialog {
    Q_OBJECT

public:
    /// `trailers` may be null: then there are none to browse. `defaults` is what the host keeps from one time
    /// to the next; null for the application's own. All of them outlive the sheet.
    ConfigSheet(ConfigurableSaver& saver, TrailerBrowser* trailers, QWidget* parent = nullptr,
                QSettings* defaults = nullptr);
    /// The same with a way of its own to look into movies.
    ConfigSheet(ConfigurableSaver& saver, TrailerBrowser* trailers, const ProbeWorker::Read& read,
                QWidget* parent, QSettings* defaults = nullptr);
    ~ConfigSheet() override;

    [[nodiscard]] ConfigModel& model() { return *m_model; }
    [[nodiscard]] PlaylistPane& playlist() { return *m_playlist; }

    /// OK for Accepted, Cancel for anything else.
    void done(int result) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void showEvent(QShowEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void setUpStarter(const ProbeWorker::Read& read);
    void setUpGroups();
    void setUpFields();
    void setUpButtons(bool hasTrailers);
    void connectControls();
    void connectFields();
    void connectButtons();
    void connectRowButtons();
    void openThemePanel();
    void fitToScreen();
    void showRowButtons();
    void showBackSavers();
    void showControls();
    void showEnabling();
    void showScale();
    void showSlider();
    void showInterval();
    void takeScale(float scale);

    MovieLibrary& m_movies;
    std::unique_ptr<Ui::SSConfig> m_ui;
    std::unique_ptr<QSettings> m_ownDefaults; ///< where the host gave none
    std::unique_ptr<SheetPanels> m_panels;
    std::unique_ptr<ConfigModel> m_model;
    std::unique_ptr<PlaylistPane> m_playlist;
    std::unique_ptr<PlaylistMenu> m_playlistMenu;
    std::unique_ptr<ThemePanel> m_themePanel; ///< from its first opening on
    StarterPane* m_starter = nullptr;         ///< Qt's parent owns it
    QButtonGroup* m_playModeRadio = nullptr;
    QButtonGroup* m_partialModeRadio = nullptr;
    QButtonGroup* m_reposRadio = nullptr;
    URLPanel* m_urlPanel = nullptr;
    QString m_secondsWord; ///< beside the interval
};

} // namespace kestro
