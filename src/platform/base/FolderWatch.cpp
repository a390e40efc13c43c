#include "platform/base/FolderWatch.h"

#include "platform/base/ChildProcess.h"
#include "platform/base/Log.h"
#include "platform/base/Reasons.h"

#include <QSocketNotifier>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace kestro {

namespace {

/// Bytes that are read at a time: some hundred names, so that movies go on meanwhile.
constexpr qsizetype mouthful = 8 * 1024;

} // namespace

std::unique_ptr<FolderWatch> FolderWatch::start(const MovieFolder& folder, Told told)
{
    int ends[2] = {-1, -1};
    const bool hasPipe = pipe2(ends, O_CLOEXEC) == 0;
    const QString reason = hasPipe ? QString() : systemReason(errno);
    Descriptor said(ends[0]);
    const Descriptor saying(ends[1]);
    if (!hasPipe || fcntl(said.number(), F_SETFL, O_NONBLOCK) != 0) {
        logLine(QStringLiteral("Cannot look into %1: %2.").arg(folder.path, reason));
        return nullptr;
    }
    auto process = ChildProcess::start(programFor(folder, saying.number()));
    if (!process) {
        logLine(QStringLiteral("Cannot look into %1: %2.").arg(folder.path, process.error()));
        return nullptr;
    }
    std::unique_ptr<FolderWatch> watch(new FolderWatch(folder, std::move(said), std::move(told)));
    watch->m_process = std::move(process.value());
    return watch;
}

FolderWatch::FolderWatch(const MovieFolder& folder, Descriptor said, Told told)
    : m_folder(folder)
    , m_told(std::move(told))
    , m_said(std::move(said))
    , m_notifier(std::make_unique<QSocketNotifier>(m_said.number(), QSocketNotifier::Read))
{
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, [this] { hear(); });
}

FolderWatch::~FolderWatch() = default;

// It may be at its end: what was told last stays.
void FolderWatch::hear()
{
    QByteArray bytes(mouthful, Qt::Uninitialized);
    const ssize_t count = read(m_said.number(), bytes.data(), mouthful);
    if (count < 0 && (errno == EINTR || errno == EAGAIN)) return;
    if (count <= 0) return m_notifier->setEnabled(false);
    bytes.truncate(count);
    QList<QByteArray> names = bytes.split('\0');
    names.front().prepend(m_begun);
    m_begun = names.takeLast();
    for (const QByteArray& name : names)
        take(name);
}

void FolderWatch::take(const QByteArray& name)
{
    if (name != "." && name != "..")
        addMovies(m_movies, m_folder, name);
    else
        m_told(std::exchange(m_movies, {}), name == "..");
}

} // namespace kestro
