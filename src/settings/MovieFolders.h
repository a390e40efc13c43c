#pragma once

#include <QList>
#include <QObject>
#include <QUrl>

#include <memory>

namespace kestro {

struct FolderEntry;

/// What is known of the movies of one folder; it changes as the folder does. Shared by all playlists with
/// that entry; the folder is followed as long as one of them has it. Main thread. Tested by
/// PlaylistFoldersTest.
class FolderMovies : public QObject {
    Q_OBJECT

public:
    /// In the order that the entry asks for; empty as long as nothing is known.
    [[nodiscard]] const QList<QUrl>& movies() const { return m_movies; }
    /// 0 as long as nothing is known, and another number with each change.
    [[nodiscard]] int revision() const { return m_revision; }
    /// Whether these are all; of a large folder some are known first.
    [[nodiscard]] bool isWhole() const { return m_isWhole; }

    /// Holds these from now on.
    void take(QList<QUrl> movies, bool isWhole);

Q_SIGNALS:
    void changed();

private:
    QList<QUrl> m_movies;
    int m_revision = 0;
    bool m_isWhole = false;
};

/// Where playlists learn what the folders among their entries hold. One per process. Main thread.
class MovieFolders {
public:
    virtual ~MovieFolders() = default;

    /// Follows a folder; answers at once, and never null. With `isHurried` all of a large one is wanted at
    /// once.
    [[nodiscard]] virtual std::shared_ptr<const FolderMovies> follow(const FolderEntry& entry,
                                                                     bool isHurried) = 0;
};

} // namespace kestro
