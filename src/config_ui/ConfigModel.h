#pragma once

#include "config_ui/ConfigControls.h"
#include "config_ui/DroppedMovies.h"
#include "config_ui/EditedMarks.h"
#include "config_ui/EditedPlaylist.h"
#include "settings/URLListReceiver.h"

#include <QObject>
#include <QStringList>

class QSettings;

namespace kestro {

class ConfigPanels;
class ConfigurableSaver;
class SettingsStore;
class TrailerBrowser;

/// The state and the rules of the configuration sheet, without its widgets: what the controls show, which of
/// them can be used, the playlist that is edited, and what OK and Cancel do. The settings change on OK only.
/// Owned by the sheet. Main thread.
class ConfigModel final : public QObject, public URLListReceiver {
    Q_OBJECT

public:
    /// What the sheet works with; all of it outlives the sheet.
    struct Sources {
        ConfigurableSaver& saver;
        ConfigPanels& panels;
        QSettings& defaults;                ///< of the application that shows the sheet
        TrailerBrowser* trailers = nullptr; ///< null where trailers cannot be browsed
    };

    explicit ConfigModel(const Sources& sources);
    ~ConfigModel() override;

    /// What the controls show. Who changes what a rule depends on applies the rule.
    [[nodiscard]] ConfigControls& controls() { return m_controls; }
    [[nodiscard]] const ConfigEnabling& enabling() const { return m_enabling; }
    [[nodiscard]] EditedPlaylist& playList() { return m_playList; }
    /// What is said of its entries.
    [[nodiscard]] EditedMarks& marks() { return m_marks; }
    /// Whether nobody has chosen what plays: the playlist is empty, or as it is without any settings.
    [[nodiscard]] bool isNothingChosen() const;
    /// Full paths of the savers that may run behind the movies, and the items of their pop-up menu.
    [[nodiscard]] const QStringList& backSaverList() const { return m_backSaverList; }
    [[nodiscard]] const QStringList& backSaverItems() const { return m_backSaverItems; }

    /// Fills everything from the settings.
    void resetInterfaces();
    /// OK (`tag` not 0): stores what the controls hold and starts the saver anew. Cancel (0): back to the
    /// settings. Ends the sheet first, and closes the trailer browser last. OK waits for what was dropped to
    /// be added, and is forgotten where the person gives that up.
    void closeConfig(int tag);

    /// The rules on what can be used: after full screen was switched; after the way of moving was chosen;
    /// after the playlist changed.
    void checkFullScreen();
    void checkDynamic();
    void checkBackAndForthCondition();

    /// Adds movie files that are chosen in a panel.
    void selectMovie();
    /// Adds a folder that is chosen in a panel, with what lies below it, as one entry.
    void selectFolder();
    /// Adds movie files as if chosen: one alone is refused with an alert, among several in silence.
    void addMovieFiles(const QStringList& files);
    /// Adds the files, and the movies in the folders, that were dropped, once they were found; an alert says
    /// where there are none.
    void addDropped(const QList<QUrl>& urls) { m_dropped.look(urls); }
    /// Removes the entries at these rows.
    void deleteMovie(const QList<int>& rows);
    /// OK (`tag` not 0) adds the typed URL; Cancel (0) does nothing. Answers whether the URL panel closes.
    [[nodiscard]] bool closeURLPanel(int tag, const QString& urlField);
    void openTrailerPanel();
    void addURLList(const QList<QUrl>& urls) override;
    /// Has hours of the day asked for, and the entries at these rows play between them.
    void askForHours(const QList<int>& rows);
    /// Puts the URL that was typed into a row there; text that is no URL is ignored. What was said of the
    /// entry is said of the new one.
    bool editEntry(int row, const QString& text);

Q_SIGNALS:
    /// The controls, or which of them can be used, changed by a rule.
    void controlsChanged();
    /// The list of savers that may run behind the movies was read anew.
    void backSaversReloaded();

private:
    void append(const QList<PlaylistEntry>& entries);
    void closeTrailerPanel();
    void reloadPlayList();
    void save();
    [[nodiscard]] QVariantMap settingsToSave() const;
    [[nodiscard]] QString chosenBackSaver() const;
    void alertOfSlideSaver();
    void alertOfFile(bool isWritten, const SettingsStore& store);
    void alertOfLoss(const QString& path);
    void alertOfURL();

    Sources m_sources;
    DroppedMovies m_dropped;
    ConfigControls m_controls;
    ConfigEnabling m_enabling;
    EditedPlaylist m_playList;
    EditedMarks m_marks;
    QList<PlaylistEntry> m_default; ///< the playlist that was there without any settings; empty with some
    QStringList m_backSaverList;
    QStringList m_backSaverItems;
    bool m_toldOfKeptFile = false;
    bool m_isBrowsing = false; ///< the trailer browser holds this
};

} // namespace kestro
