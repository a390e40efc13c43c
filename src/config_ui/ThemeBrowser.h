#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class QUrl;

namespace kestro {

class URLListReceiver;

/// Whether a file of the DVD program is one of its movies: its name ends in ".mov".
[[nodiscard]] bool isThemeMovie(const QString& path);

/// One movie of the DVD program's themes.
struct ThemeRecord {
    QString path;               ///< "Path": of the movie file, absolute
    bool isRecommended = false; ///< "Rec"

    bool operator==(const ThemeRecord&) const = default;
};

/// The program whose themes they are, as an absolute path of the desktop.
extern const QString dvdProgram;

/// The theme movies that make good backgrounds, as absolute paths of the desktop.
extern const QStringList recomenedList;

/// The theme movies that are on this machine, and what adding some of them does, without widgets. Owned by
/// its panel. Main thread.
class ThemeBrowser final {
public:
    /// `playlist` takes what is added; it outlives the browser.
    explicit ThemeBrowser(URLListReceiver& playlist)
        : m_playlist(playlist)
    {
    }

    /// Looks for the movies, the first time only: they are kept from then on.
    void showIDVDThemes();
    /// Appends the movies below a folder, depth first, each folder in the order of its names. A movie is what
    /// ends in ".mov"; a missing folder has none. One is recommended when it lies where a path of
    /// recomenedList does on this machine (platformPath), be that the desktop's own place or the package's.
    void scanIDVDThemes(const QString& folder);
    /// In the order they were found.
    [[nodiscard]] const QList<ThemeRecord>& themeList() const { return m_themeList; }

    /// The file of a row that is one.
    [[nodiscard]] QUrl movieURL(int row) const;
    /// Add (`tag` not 0): hands on the movies at these rows, in ascending order, but those that isValidURL
    /// refuses. Cancel (0): nothing.
    void closeIDVDThemesPanel(int tag, QList<int> rows);

private:
    struct Scan;

    void scanFolder(const QString& folder, Scan& scan);

    URLListReceiver& m_playlist;
    QList<ThemeRecord> m_themeList;
    bool m_hasScanned = false;
};

} // namespace kestro
