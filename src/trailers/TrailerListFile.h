#pragma once

#include "trailers/ListRoom.h"
#include "trailers/TrailerRecord.h"

#include <QByteArray>
#include <QHash>
#include <QSet>
#include <QString>

#include <optional>

namespace kestro {

/// What a list file holds. Entries are added with room counted for them.
struct TrailerListContents {
    /// Keeps `record` under `url`; answers false where there is no room for it.
    bool keep(const QString& url, TrailerRecord record);
    /// Keeps a page that was visited; likewise.
    bool keepSite(QByteArrayView site);
    /// Takes a page away; answers whether it was there.
    bool forgetSite(QByteArrayView site);

    QHash<QString, TrailerRecord> trailers; ///< by URL string
    QSet<QByteArray> sites;                 ///< the pages that a crawl has visited, absolute strings in UTF-8
    bool hasTrailers = false;               ///< there was a list, even an empty one
    ListRoom room;
};

/// Tells one state of a file from another: each that was saved has another one.
struct FileMark {
    quint64 device = 0;
    quint64 number = 0;
    qint64 size = 0;
    qint64 seconds = 0;
    qint64 nanoseconds = 0;
    [[nodiscard]] bool operator==(const FileMark&) const = default;
};

/// The file that the scanned trailers are kept in, in the user's "Library/Preferences". A stateless name of a
/// place; owned by the list. Any one thread at a time. Tested by TrailerListLoadTest.
class TrailerListFile final {
public:
    /// `seed` is the list that a user starts with, installed where there is none or only an outdated one.
    TrailerListFile(const QString& homeFolder, QString seed);

    /// What the file holds, after the seed was put in the place of a missing or outdated one. What is no
    /// trailer on a web site, and what there is no room for, is left out, with a log line. A file without
    /// a version is outdated, as is one that cannot be read; it goes to the backup name, and one that cannot
    /// be read to a further name where there is a backup already.
    [[nodiscard]] TrailerListContents load() const;
    /// What the file holds as it is; nothing where it cannot be read.
    [[nodiscard]] std::optional<TrailerListContents> read() const;
    /// Moves a file that nobody can read to a further name, with a log line, before it is written over.
    void setAside() const;
    /// The state that the file is in; nothing where there is none.
    [[nodiscard]] std::optional<FileMark> mark() const;
    /// Writes all of it, atomically; answers whether it did.
    [[nodiscard]] bool save(const TrailerListContents& contents) const;

    [[nodiscard]] const QString& path() const { return m_path; }

private:
    [[nodiscard]] TrailerListContents contentsOf(const QVariantMap& stored) const;
    void installSeed() const;
    void retire(bool isReadable) const;

    QString m_path;
    QString m_backup;
    QString m_seed;
};

/// The date of records of an older list that have none.
[[nodiscard]] QString defaultDateStr();

} // namespace kestro
