#pragma once

#include "platform/base/ChildOutput.h"

#include <QList>
#include <QStringList>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>

namespace kestro {

class ChildProcess;

/// Looks for files among paths and below the folders among them, in a process of its own: a disk may never
/// answer, and then holds that process alone. Destroying it gives up. Owned by whoever waits; main thread, of
/// an application.
class FileWalk final {
public:
    struct Found {
        /// For each path what is there: a file itself, or the files below a folder, in no order; neither
        /// hidden ones nor what lies behind a link to a folder. Of a folder 100,000 names are looked at.
        QList<QStringList> files;
        bool isWhole = true; ///< no when it took too long: some files may not have been found yet
    };
    /// Called once, later; may destroy the walk.
    using Done = std::function<void(const Found&)>;

    /// Looks for `longest` at most. Null, with a log line, where no process can be had.
    [[nodiscard]] static std::unique_ptr<FileWalk> start(const QStringList& paths,
                                                         std::chrono::milliseconds longest, Done done);
    ~FileWalk();
    FileWalk(const FileWalk&) = delete;
    FileWalk& operator=(const FileWalk&) = delete;

private:
    FileWalk(std::unique_ptr<ChildProcess> process, ChildOutput said, qsizetype paths, Done done);
    void finish(bool isWhole);

    std::unique_ptr<ChildProcess> m_process;
    ChildOutput m_said;
    qsizetype m_paths;
    Done m_done;
    QTimer m_bound;
};

} // namespace kestro
