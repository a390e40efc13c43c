#include "platform/base/MovieFolder.h"

#include "platform/base/ChildOutput.h"
#include "platform/base/ChildProcess.h"
#include "platform/base/Paths.h"

#include <QDeadlineTimer>
#include <QFile>

#include <unistd.h>

namespace kestro {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds stopLatency{50}; ///< of who waits

} // namespace

ChildProgram programFor(const MovieFolder& folder, int said)
{
    QStringList words{QStringLiteral("--movies"), folder.path};
    if (folder.isRecursive) words.append(QStringLiteral("recursive"));
    if (folder.isNewestFirst) words.append(QStringLiteral("newest"));
    if (folder.isHurried) words.append(QStringLiteral("hurried"));
    if (folder.isOnce) words.append(QStringLiteral("once"));
    if (folder.list != nullptr) words.append(QStringLiteral("list"));
    return {.file = packageLibraries() + QStringLiteral("/kestro-file-look"),
            .arguments = words,
            .environment = QStringList(),
            .descriptors = {{said, STDOUT_FILENO}},
            .group = ChildProgram::Group::OwnSession};
}

void addMovies(QList<QUrl>& movies, const MovieFolder& folder, const QByteArray& name)
{
    if (folder.list != nullptr) return movies.append(folder.list(folder.path, name.mid(1)));
    const QString slash = folder.path.endsWith(u'/') ? QString() : QStringLiteral("/");
    movies.append(QUrl::fromLocalFile(folder.path + slash + QFile::decodeName(name)));
}

std::optional<QList<QUrl>> moviesIn(MovieFolder folder, milliseconds longest, const std::stop_token& stop)
{
    folder.isHurried = true;
    folder.isOnce = true;
    const ChildOutput said;
    const auto process = ChildProcess::start(programFor(folder, said.number()));
    const QDeadlineTimer bound(longest);
    while (process && !process.value()->waitForEnd(stopLatency))
        if (bound.hasExpired() || stop.stop_requested()) return {};
    QList<QByteArray> names = said.all().split('\0');
    if (names.size() < 2) return {}; // a name, or the end of them, and what follows the last zero
    names.resize(names.size() - 2);
    QList<QUrl> movies;
    movies.reserve(names.size());
    for (const QByteArray& name : names)
        addMovies(movies, folder, name);
    return movies;
}

} // namespace kestro
