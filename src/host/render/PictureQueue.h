#pragma once

#include "platform/base/Result.h"

#include <QMutex>
#include <QSemaphore>
#include <QThreadPool>

class QImage;

namespace kestro {

class PictureFolder;

/// Packs and writes pictures on threads of its own, so that the saver goes on meanwhile. Takes in no more
/// than a few at a time: who is faster than the disk waits. Owned by the run; called on the main thread.
class PictureQueue final {
public:
    /// The folder must outlive the queue.
    explicit PictureQueue(const PictureFolder& folder);
    /// Waits for what is still to be written.
    ~PictureQueue();

    /// Writes `picture`, which must own its pixels.
    void add(const QImage& picture, int screen, double seconds);
    /// Waits until everything is written.
    void finish();
    /// Whether all that was tried so far could be written; the reason is that of the first one that failed.
    [[nodiscard]] Result<void> written() const;

private:
    void write(const QImage& picture, int screen, double seconds);

    const PictureFolder& m_folder;
    mutable QMutex m_mutex; ///< guards m_written
    Result<void> m_written;
    QSemaphore m_room;
    QThreadPool m_threads; ///< goes first: its threads use the others
};

} // namespace kestro
