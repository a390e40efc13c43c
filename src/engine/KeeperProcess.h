#pragma once

#include "engine/AheadFetch.h"
#include "engine/MoviesAhead.h"
#include "platform/base/ChildProcess.h"
#include "platform/base/Descriptor.h"

#include <QByteArray>
#include <QString>

#include <memory>

namespace kestro {

class NeverList;

/// The process that fetches movies ahead, kestro-keep: started with the first that are wanted, of the lowest
/// priority, it ends with this one. Owned by the program, one for all savers. Main thread.
/// Tested by test_kept_movies.
class KeeperProcess final : public AheadFetch {
public:
    /// `folder` is where it keeps them, in so many bytes at most. What is on `never` is not fetched.
    KeeperProcess(QString folder, qint64 bytes, const NeverList& never);

    void plays(const QUrl& movie, Playlist& playlist) override;

private:
    void want(QList<QUrl> movies);
    void start();
    void tell();

    MoviesAhead m_ahead;
    QString m_folder;
    qint64 m_bytes;
    const NeverList& m_never;
    QByteArray m_told; ///< what it knows
    std::unique_ptr<ChildProcess> m_process;
    Descriptor m_wishes; ///< a pipe to it
    int m_starts = 0;
};

} // namespace kestro
