#pragma once

#include "platform/base/Descriptor.h"
#include "platform/base/MovieFolder.h"

#include <QByteArray>

#include <functional>
#include <memory>

class QSocketNotifier;

namespace kestro {

class ChildProcess;

/// Tells which movies a folder holds, and again whenever it holds others. A process of its own looks and
/// watches: a disk may never answer, and then holds that process alone, and a large folder takes its time.
/// Owned by whoever wants to know; main thread, of an application.
class FolderWatch final {
public:
    /// Files, in their order. Of a large folder first some, `isWhole` being false, and all of them seconds
    /// later. Hidden ones and downloads on their way are left out; of a folder 100,000 names are looked at.
    using Told = std::function<void(QList<QUrl> movies, bool isWhole)>;

    /// Calls `told`, later, as often as there is something to tell. Null, with a log line, where no process
    /// can be had.
    [[nodiscard]] static std::unique_ptr<FolderWatch> start(const MovieFolder& folder, Told told);
    ~FolderWatch();
    FolderWatch(const FolderWatch&) = delete;
    FolderWatch& operator=(const FolderWatch&) = delete;

private:
    FolderWatch(const MovieFolder& folder, Descriptor said, Told told);
    void hear();
    void take(const QByteArray& name);

    MovieFolder m_folder;
    Told m_told;
    std::unique_ptr<ChildProcess> m_process;
    Descriptor m_said;
    std::unique_ptr<QSocketNotifier> m_notifier;
    QByteArray m_begun; ///< of a name that has not come as a whole
    QList<QUrl> m_movies;
};

} // namespace kestro
