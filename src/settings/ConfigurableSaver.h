#pragma once

#include <QStringList>

namespace kestro {

class MovieLibrary;
class Playlist;
class Settings;

/// A saver whose options can be edited, as the configuration sheet knows it: what SaverControl::options
/// answers a host. Outlives the sheet. Main thread.
class ConfigurableSaver {
public:
    virtual ~ConfigurableSaver() = default;

    /// The options as this view reads them, and the files behind them.
    [[nodiscard]] virtual Settings& settings() = 0;
    /// The stored playlist, and what is kept of it.
    [[nodiscard]] virtual Playlist& playlist() = 0;

    /// What opens the saver's movies, for whoever shows others beside them. Outlives the saver.
    [[nodiscard]] virtual MovieLibrary& movies() = 0;

    /// Lists the savers that may run behind the movies anew; answers the full paths of their bundles.
    [[nodiscard]] virtual QStringList reloadBackSavers() = 0;

    /// Gives the movie that shows the loop mode that the settings and the playlist ask for now; nothing where
    /// none shows.
    virtual void applyLoopMode() = 0;
    /// Starts anew with the settings as they are now.
    virtual void resetMovie() = 0;
};

} // namespace kestro
