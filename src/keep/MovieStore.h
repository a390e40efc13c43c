#pragma once

#include "platform/base/Descriptor.h"
#include "platform/base/Result.h"
#include "platform/network/Download.h"

#include <QDateTime>
#include <QFileInfoList>
#include <QList>
#include <QString>
#include <QUrl>

#include <functional>
#include <optional>

namespace kestro {

/// What is kept, as people are told.
struct KeptSummary {
    int movies = 0;
    qint64 bytes = 0;      ///< of all that lies there
    QDateTime lastFetched; ///< null where nothing was
};

/// Why something cannot be kept.
struct StoreFault {
    enum class Kind {
        TooLarge, ///< for all the room that there is
        NoRoom,   ///< beside what is wanted as well
        Disk,     ///< that is full, or cannot be written
    };
    Kind kind = Kind::Disk;
    QString message; ///< the reason alone
};

/// The folder with copies of movies from the web. What is a movie there is whole, and was looked into: before
/// that it has another name. One process at a time changes anything, the one that claimed it; those that play
/// a copy hold it. Owned by who keeps movies; any one thread.
class MovieStore final {
public:
    /// May take `room` bytes in all.
    MovieStore(QString folder, qint64 room);

    /// Makes the folder, and waits until no other process has claimed it.
    [[nodiscard]] Result<void> claim();
    /// Takes away what nobody finished, what is not as it was, and what there is no room for any more.
    void tidy();

    [[nodiscard]] bool has(const QUrl& movie) const;
    /// Whether it was found this week not to be one that can be kept.
    [[nodiscard]] bool isRefused(const QUrl& movie) const;
    void refuse(const QUrl& movie);
    /// The version of a copy that has not been compared with its server for a week, and can be: nobody plays
    /// it. Nothing otherwise.
    [[nodiscard]] std::optional<RemoteVersion> staleVersion(const QUrl& movie) const;
    void noteChecked(const QUrl& movie);

    /// Has room for so many bytes more, taking away what was played least recently, but none of `wanted`.
    [[nodiscard]] Result<void, StoreFault> makeRoom(qint64 bytes, const QList<QUrl>& wanted);
    /// Where a movie is put until it is whole.
    [[nodiscard]] QString partFile(const QUrl& movie) const;
    /// Makes what was put there the copy, in the place of another one.
    [[nodiscard]] Result<void> take(const QUrl& movie, const RemoteVersion& version);

    [[nodiscard]] KeptSummary summary() const { return summaryOf(m_folder); }
    [[nodiscard]] qint64 room() const { return m_room; }
    /// Of a folder that may belong to somebody else, or not be there.
    [[nodiscard]] static KeptSummary summaryOf(const QString& folder);

private:
    [[nodiscard]] QString file(const QUrl& movie, const QString& extension) const;
    [[nodiscard]] QFileInfoList files(const QString& extension) const;
    [[nodiscard]] qint64 used() const;
    bool free(qint64 bytes, const std::function<bool(const QFileInfo&)>& mayGo);
    [[nodiscard]] static bool drop(const QFileInfo& movie);

    QString m_folder;
    qint64 m_room;
    Descriptor m_claim;
};

} // namespace kestro
