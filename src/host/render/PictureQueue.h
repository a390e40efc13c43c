#pragma once

#include <QMutex>
#include <QSemaphore>
#include <QString>
#include <QThreadPool>

#include <optional>

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
    /// Why a picture could not be written, the first one that failed so far.
    [[nodiscard]] std::optional<QString> failure() const;

private:
    void write(const QImage& picture, int screen, double seconds);

    const PictureFolder& m_folder;
    mutable QMutex m_mutex; ///< guards m_failure
    std::optional<QString> m_failure;
    QSemaphore m_room;
    QThreadPool m_threads; ///< goes first: its threads use the others
};

} // namespace kestro
