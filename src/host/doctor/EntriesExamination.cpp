#include "host/doctor/EntriesExamination.h"

#include "platform/base/FileLook.h"
#include "platform/base/MovieFolder.h"
#include "platform/base/ShownURL.h"
#include "platform/base/URLKind.h"
#include "platform/movie/MovieProbe.h"
#include "settings/FolderEntry.h"

namespace kestro {

namespace {

constexpr qsizetype mostEntries = 200;
constexpr qsizetype mostAtOnce = 8;
constexpr std::chrono::milliseconds longestOpening{5000}; // of a movie at an address, or of a folder

QString remedyOf(const MovieFault& fault)
{
    switch (fault.kind) {
    case MovieFault::Kind::NoFile:
        return QStringLiteral("put the file back, or take the entry out in kestro settings");
    case MovieFault::Kind::NotReadable:
        return QStringLiteral("make the file one that you may read");
    case MovieFault::Kind::NoDecoder:
        return QStringLiteral("install the decoder: on Debian, libavcodec-extra");
    case MovieFault::Kind::NoAnswer:
    case MovieFault::Kind::NotReached:
        return QStringLiteral("see whether the network and the server are there");
    default:
        return QStringLiteral("take the entry out in kestro settings, or convert the movie");
    }
}

Result<MovieFacts, MovieFault> probe(const QUrl& entry)
{
    return entry.isLocalFile() ? probeMovieOnAnyDisk(entry.toLocalFile())
                               : probeRemoteMovie(entry, longestOpening);
}

Findings openFolder(const QString& name, const std::optional<FolderEntry>& entry)
{
    const bool isList = entry && entry->isList;
    const QString kind = isList ? QStringLiteral("file") : QStringLiteral("folder");
    const QString take = QStringLiteral("take the entry out in kestro settings");
    if (!entry) return {broken(name + QStringLiteral(": no folder of this machine"), take)};
    if (!isFileThere(entry->path))
        return {broken(QStringLiteral("%1: no such %2").arg(name, kind),
                       QStringLiteral("put the %1 back, or ").arg(kind) + take)};
    const auto movies = moviesIn(movieFolder(*entry), longestOpening);
    if (!movies)
        return {
            broken(name + QStringLiteral(": no answer"), QStringLiteral("see whether its disk is there"))};
    const QString count = QStringLiteral("%1: %2 movies").arg(name).arg(movies->size());
    if (movies->isEmpty()) return {broken(count, QStringLiteral("put movies into it, or ") + take)};
    return {fine(count)};
}

} // namespace

Findings openEntry(const QUrl& entry)
{
    const QString name = shownURL(entry);
    if (isFolderEntry(entry) || isListEntry(entry)) return openFolder(name, folderEntry(entry));
    if (namesWebContent(entry) && entry.isLocalFile() && !isFileThere(entry.toLocalFile()))
        return {
            broken(name + QStringLiteral(": no such file"), remedyOf({.kind = MovieFault::Kind::NoFile}))};
    if (namesWebContent(entry)) return {fine(name + QStringLiteral(": web content"))};
    const auto facts = probe(entry);
    if (!facts)
        return {broken(QStringLiteral("%1: %2").arg(name, plainWords(facts.failure())),
                       remedyOf(facts.failure()))};
    return {fine(
        QStringLiteral("%1: %2x%3").arg(name).arg(facts.value().codedWidth).arg(facts.value().codedHeight))};
}

EntriesExamination::EntriesExamination(QList<QUrl> entries, std::chrono::milliseconds longest, Opener opener)
    : Examination(QStringLiteral("Entries of the playlist"))
    , m_entries(std::move(entries))
    , m_left(std::max<qsizetype>(0, m_entries.size() - mostEntries))
    , m_longest(longest)
    , m_opener(std::move(opener))
{
    m_entries.resize(m_entries.size() - m_left);
}

void EntriesExamination::begin(Done done)
{
    m_done = std::move(done);
    if (m_entries.isEmpty())
        return m_done({broken(QStringLiteral("the playlist is empty"),
                              QStringLiteral("add movies in kestro settings"))});
    while (m_next < std::min(mostAtOnce, m_entries.size()))
        openNext();
}

void EntriesExamination::openNext()
{
    const qsizetype index = m_next++;
    const auto look = [opener = m_opener, entry = m_entries[index]] { return opener(entry); };
    auto task = DetachedTask::start<Findings>(
        QStringLiteral("doctor entry %1").arg(index), m_longest, look,
        [this, index](const std::optional<Findings>& found) { opened(index, found); });
    const bool isRefused = !task;
    m_tasks[index] = std::move(task);
    if (isRefused) opened(index, {});
}

void EntriesExamination::opened(qsizetype index, const std::optional<Findings>& found)
{
    const QString name = shownURL(m_entries[index]);
    m_found[index] = found.value_or(Findings{
        broken(name + QStringLiteral(": no answer"), remedyOf({.kind = MovieFault::Kind::NoAnswer}))});
    if (m_next < m_entries.size()) return openNext();
    if (qsizetype(m_found.size()) == m_entries.size()) finish();
}

void EntriesExamination::finish()
{
    Findings all;
    for (const auto& [index, found] : m_found)
        all += found;
    if (m_left > 0) all += fine(QStringLiteral("%1 more were not opened").arg(m_left));
    m_done(all);
}

} // namespace kestro
