#include "platform/base/FileWalk.h"

#include "platform/base/ChildProcess.h"
#include "platform/base/Log.h"
#include "platform/base/Paths.h"

#include <QFile>

#include <unistd.h>
#include <utility>

namespace kestro {

namespace {

/// What the process has written: each name ends with a zero byte, and those of each path with another one. A
/// name that was not written whole is left out.
QList<QStringList> filesIn(const QByteArray& said, qsizetype paths)
{
    QList<QStringList> files(paths);
    QList<QByteArray> names = said.split('\0');
    names.removeLast();
    qsizetype path = 0;
    for (const QByteArray& name : names) {
        if (name.isEmpty())
            ++path;
        else if (path < paths)
            files[path].append(QFile::decodeName(name));
    }
    return files;
}

} // namespace

std::unique_ptr<FileWalk> FileWalk::start(const QStringList& paths, std::chrono::milliseconds longest,
                                          Done done)
{
    ChildOutput said;
    const QString program = packageLibraries() + QStringLiteral("/kestro-file-look");
    auto process = ChildProcess::start({.file = program,
                                        .arguments = QStringList(QStringLiteral("--below")) + paths,
                                        .environment = QStringList(),
                                        .descriptors = {{said.number(), STDOUT_FILENO}},
                                        .group = ChildProgram::Group::OwnSession});
    if (!process) {
        logLine(QStringLiteral("Cannot start %1: %2.").arg(program, process.error()));
        return nullptr;
    }
    std::unique_ptr<FileWalk> walk(
        new FileWalk(std::move(process.value()), std::move(said), paths.size(), std::move(done)));
    walk->m_bound.start(longest);
    return walk;
}

FileWalk::FileWalk(std::unique_ptr<ChildProcess> process, ChildOutput said, qsizetype paths, Done done)
    : m_process(std::move(process))
    , m_said(std::move(said))
    , m_paths(paths)
    , m_done(std::move(done))
{
    m_bound.setSingleShot(true);
    QObject::connect(&m_bound, &QTimer::timeout, [this] { finish(false); });
    m_process->whenEnded([this](const ChildEnd& end) { finish(end.isSuccess()); });
}

FileWalk::~FileWalk() = default;

void FileWalk::finish(bool isWhole)
{
    m_bound.stop();
    const Done done = std::exchange(m_done, nullptr);
    if (done) done({filesIn(m_said.all(), m_paths), isWhole});
}

} // namespace kestro
