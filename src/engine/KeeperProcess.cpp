#include "engine/KeeperProcess.h"

#include "engine/NeverList.h"
#include "platform/base/Log.h"
#include "platform/base/Paths.h"
#include "platform/base/WantedMovies.h"
#include "settings/Playlist.h"

#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace kestro {

namespace {

constexpr int mostStarts = 3;
constexpr qsizetype mostBytes = 32 * 1024; ///< fit into a pipe that is empty

} // namespace

KeeperProcess::KeeperProcess(QString folder, qint64 bytes, const NeverList& never)
    : m_folder(std::move(folder))
    , m_bytes(bytes)
    , m_never(never)
{
}

void KeeperProcess::plays(const QUrl& movie, Playlist& playlist)
{
    QList<QUrl> wanted = m_ahead.after(movie, playlist.fileList(),
                                       [&playlist](const QUrl& each) { return playlist.isTrailer(each); });
    wanted.removeIf([this](const QUrl& each) { return m_never.holds(each); });
    want(std::move(wanted));
}

void KeeperProcess::want(QList<QUrl> movies)
{
    QByteArray text = textOf(movies);
    for (; text.size() > mostBytes; text = textOf(movies))
        movies.removeLast();
    if (movies.isEmpty() && m_told.isEmpty()) return;
    m_told = text;
    if (!m_process && m_starts < mostStarts) start();
    if (m_process) tell();
}

void KeeperProcess::start()
{
    ++m_starts;
    int ends[2] = {-1, -1};
    if (pipe2(ends, O_CLOEXEC) != 0) return;
    const Descriptor reading(ends[0]);
    m_wishes = Descriptor(ends[1]);
    fcntl(m_wishes.number(), F_SETFL, O_NONBLOCK);
    auto started = ChildProcess::start(
        {.file = packageLibraries() + QStringLiteral("/kestro-keep"),
         .arguments = {m_folder, QString::number(m_bytes)},
         .descriptors = {{reading.number(), STDIN_FILENO}, {STDERR_FILENO, STDERR_FILENO}},
         .endsWithParent = true});
    if (!started) return logLine(QStringLiteral("Cannot start kestro-keep: %1").arg(started.error()));
    m_process = std::move(started.value());
    m_process->whenEnded([this](const ChildEnd&) {
        m_wishes.reset();
        m_process.reset();
    });
}

// One that does not read along is none.
void KeeperProcess::tell()
{
    if (write(m_wishes.number(), m_told.constData(), static_cast<std::size_t>(m_told.size())) ==
        m_told.size())
        return;
    m_wishes.reset();
    m_process.reset();
}

} // namespace kestro
