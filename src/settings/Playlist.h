#pragma once

#include "settings/ListMarks.h"
#include "settings/PlaylistFolders.h"

#include <QList>
#include <QSet>
#include <QString>
#include <QUrl>
#include <QVariant>

#include <optional>

namespace kestro {

class EntryMarks;
class LatestTrailers;
class Settings;

/// Movies that other software installs, used for the default playlist.
extern const QString idvdFishMoviePath;
extern const QString defalutMovieURL;
extern const QString defalutMovieURL_104;

/// What a view plays: the stored list, as it is edited, and expanded to what can be played. One
/// per view. Main thread.
class Playlist final {
public:
    /// `trailers` serves automatic entries. With `isPreview`, and in a run that leaves nothing behind, no
    /// crawl is ever started. `folders` serves entries that are folders or playlist files, which hold nothing
    /// without it; they are followed from now on. `marks` has what was said of entries that are no folders;
    /// nothing without it.
    Playlist(Settings& settings, LatestTrailers& trailers, bool isPreview, MovieFolders* folders = nullptr,
             EntryMarks* marks = nullptr);

    /// The stored list as URLs, by the rules of its version; with `expand` each automatic entry is replaced
    /// by the trailers it stands for now, and the first one starts a crawl in the background; each folder
    /// and each playlist file by the movies that are known of it. What is beyond Bounds::playlistEntries is
    /// left out then. A stored string that is no URL is left out.
    [[nodiscard]] QList<QUrl> movieFileList(bool expand);
    /// The same list as absolute URL texts. QUrl writes host names in lower case; an entry that is stored
    /// otherwise keeps its letters here.
    [[nodiscard]] QStringList movieFileStrings(bool expand);
    /// Whether nobody has chosen what plays: the list is then the one for machines without settings.
    [[nodiscard]] bool isDefault() const;
    /// The list that is edited.
    [[nodiscard]] QList<QUrl> plistFileList() { return movieFileList(false); }
    /// The list that is played; kept until dropFileList().
    [[nodiscard]] const QList<QUrl>& fileList();
    /// What was said of the movies of that list.
    [[nodiscard]] const ListMarks& marks();
    /// Those of the entries that are no folders; null where nothing can be said of them.
    [[nodiscard]] EntryMarks* entryMarks() const { return m_entryMarks; }
    /// Forgets the kept list, so that the next fileList() is built anew.
    void dropFileList();

    /// The folders among the entries.
    [[nodiscard]] PlaylistFolders& folders() { return m_folders; }
    /// Where folders hold something else by now: builds the kept list anew, and has curIdx() stay at the same
    /// entry, or in sequential order behind the same one. Answers what the list was before; nothing where
    /// there are no news. No pick is under way.
    std::optional<QList<QUrl>> takeNews();

    /// Sequential order: index in fileList() of the next entry to try. Random order: of the entry now
    /// playing. -1 at first.
    [[nodiscard]] int curIdx() const { return m_curIdx; }
    void setCurIdx(int index) { m_curIdx = index; }

    /// Whether this view has asked for a crawl, which it does at most once.
    [[nodiscard]] bool hasAutoTrailers() const { return m_hasAutoTrailers; }

    /// Whether an automatic entry stood for it when the list was built last.
    [[nodiscard]] bool isTrailer(const QUrl& movie) const { return m_shownTrailers.contains(movie); }

    /// Absolute URL strings of entries that could not be opened; trailers among them are not expanded again.
    [[nodiscard]] const QSet<QString>& failedURLList() const { return m_failedURLList; }
    void addFailedURL(const QUrl& url);
    void forgetFailedURLs() { m_failedURLList.clear(); }

private:
    struct Entry;

    [[nodiscard]] QList<Entry> entries(bool expand);
    [[nodiscard]] EntryMark markOf(const QUrl& entry) const;
    [[nodiscard]] static QList<QUrl> urlsOf(QList<Entry> entries);
    void build();
    [[nodiscard]] QList<Entry> storedPaths(const QVariantList& stored) const;
    [[nodiscard]] QList<Entry> storedURLs(const QVariantList& stored, bool expand);
    static void cut(QList<Entry>& entries);
    [[nodiscard]] QList<QUrl> latestTrailers(const QUrl& entry);
    void scanOnce();
    void followFolders();
    [[nodiscard]] int placeOf(const QUrl& played, qsizetype before) const;

    Settings& m_settings;
    LatestTrailers& m_trailers;
    bool m_isPreview;
    PlaylistFolders m_folders;
    EntryMarks* m_entryMarks;
    std::optional<QList<QUrl>> m_urlList;
    ListMarks m_marks;          ///< of that list
    QSet<QUrl> m_shownTrailers; ///< in the place of automatic entries
    QSet<QString> m_failedURLList;
    int m_curIdx = -1;
    bool m_hasAutoTrailers = false;
};

} // namespace kestro
