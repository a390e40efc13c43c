#include "keep/MovieStore.h"

#include "keep/KeptFacts.h"
#include "platform/base/FileReplacement.h"
#include "platform/base/KeptMovies.h"
#include "platform/base/PrivateFolder.h"
#include "platform/base/Reasons.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <numeric>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>
#include <utility>

namespace kestro {

namespace {

const QString movieFile = QStringLiteral(".movie");
const QString partFileEnding = QStringLiteral(".part");
const QString factsFile = QStringLiteral(".facts");
const QString refusedFile = QStringLiteral(".refused");

constexpr qint64 secondsOfWeek = 7LL * 24 * 60 * 60;
constexpr qint64 bytesBeside = 1024;                 ///< a movie: what is known of it
constexpr qint64 leftToOthers = 256LL * 1000 * 1000; ///< bytes of the disk

bool isOlderThanWeek(const QFileInfo& file)
{
    return file.lastModified().secsTo(QDateTime::currentDateTime()) > secondsOfWeek;
}

QString beside(const QFileInfo& movie, const QString& extension)
{
    return movie.path() + u'/' + movie.completeBaseName() + extension;
}

/// Keeps others from holding it as long as this is open; none where somebody holds it.
Descriptor takeFromPlayers(const QString& path)
{
    Descriptor file(
        open(QFile::encodeName(path).constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    const bool isMine = file.isOpen() && flock(file.number(), LOCK_EX | LOCK_NB) == 0;
    return isMine ? std::move(file) : Descriptor();
}

/// Its names are on the disk, as its files are.
void flushFolder(const QString& folder)
{
    if (const Descriptor open = openFolder(folder); open.isOpen()) fsync(open.number());
}

bool isAsItWas(const QFileInfo& movie)
{
    const auto facts = KeptFacts::at(beside(movie, factsFile));
    return facts && facts->length == movie.size();
}

Result<void, StoreFault> roomOnDisk(const QString& folder, qint64 bytes)
{
    struct statvfs disk = {};
    if (statvfs(QFile::encodeName(folder).constData(), &disk) != 0)
        return StoreFault{.message = systemReason(errno)};
    const qint64 left = static_cast<qint64>(disk.f_bavail) * static_cast<qint64>(disk.f_frsize);
    if (left < bytes + leftToOthers) return StoreFault{.message = systemReason(ENOSPC)};
    return {};
}

} // namespace

MovieStore::MovieStore(QString folder, qint64 room)
    : m_folder(std::move(folder))
    , m_room(room)
{
}

Result<void> MovieStore::claim()
{
    const bool isThere = QDir().mkpath(QFileInfo(m_folder).path()) && makePrivateFolder(m_folder);
    if (!isThere) return Error{QStringLiteral("cannot make %1").arg(m_folder)};
    m_claim = Descriptor(open(QFile::encodeName(m_folder + QStringLiteral("/lock")).constData(),
                              O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0600));
    while (m_claim.isOpen() && flock(m_claim.number(), LOCK_EX) != 0)
        if (errno != EINTR) m_claim.reset();
    if (!m_claim.isOpen()) return Error{systemReason(errno)};
    return {};
}

void MovieStore::tidy()
{
    for (const QFileInfo& part : files(partFileEnding))
        QFile::remove(part.filePath());
    for (const QFileInfo& movie : files(movieFile))
        if (!isAsItWas(movie)) static_cast<void>(drop(movie));
    for (const QFileInfo& facts : files(factsFile))
        if (!QFileInfo::exists(beside(facts, movieFile))) QFile::remove(facts.filePath());
    for (const QFileInfo& refused : files(refusedFile))
        if (isOlderThanWeek(refused)) QFile::remove(refused.filePath());
    free(0, [](const QFileInfo&) { return true; });
}

bool MovieStore::has(const QUrl& movie) const
{
    return QFileInfo::exists(file(movie, movieFile));
}

bool MovieStore::isRefused(const QUrl& movie) const
{
    const QFileInfo refused(file(movie, refusedFile));
    return refused.exists() && !isOlderThanWeek(refused);
}

void MovieStore::refuse(const QUrl& movie)
{
    QFile mark(file(movie, refusedFile));
    static_cast<void>(mark.open(QIODevice::WriteOnly)); // it is refused again where that fails
}

std::optional<RemoteVersion> MovieStore::staleVersion(const QUrl& movie) const
{
    const QFileInfo facts(file(movie, factsFile));
    if (!facts.exists() || !isOlderThanWeek(facts)) return {};
    if (!takeFromPlayers(file(movie, movieFile)).isOpen()) return {};
    const auto known = KeptFacts::at(facts.filePath());
    return known ? std::optional(known->version) : std::nullopt;
}

void MovieStore::noteChecked(const QUrl& movie)
{
    QFile facts(file(movie, factsFile));
    if (facts.open(QIODevice::ReadWrite | QIODevice::ExistingOnly)) futimens(facts.handle(), nullptr);
}

Result<void, StoreFault> MovieStore::makeRoom(qint64 bytes, const QList<QUrl>& wanted)
{
    const qint64 needed = bytes + bytesBeside;
    if (bytes > m_room || needed > m_room) return StoreFault{StoreFault::Kind::TooLarge, tooLarge(m_room)};
    QStringList names;
    for (const QUrl& movie : wanted)
        names.append(keptName(movie));
    const auto isUnwanted = [&names](const QFileInfo& movie) {
        return !names.contains(movie.completeBaseName());
    };
    if (!free(needed, isUnwanted))
        return StoreFault{StoreFault::Kind::NoRoom, QStringLiteral("all that is kept is wanted as well")};
    return roomOnDisk(m_folder, needed);
}

/// False, with nothing taken away, where all that may go would not be enough.
bool MovieStore::free(qint64 bytes, const std::function<bool(const QFileInfo&)>& mayGo)
{
    QFileInfoList going = files(movieFile);
    going.removeIf([&mayGo](const QFileInfo& movie) { return !mayGo(movie); });
    std::ranges::stable_sort(going, {}, [](const QFileInfo& movie) { return movie.lastModified(); });
    qint64 excess = used() + bytes - m_room;
    const qint64 most = std::accumulate(going.cbegin(), going.cend(), qint64{0},
                                        [](qint64 sum, const QFileInfo& each) { return sum + each.size(); });
    if (excess > most) return false;
    for (auto movie = going.cbegin(); excess > 0 && movie != going.cend(); ++movie)
        if (drop(*movie)) excess = used() + bytes - m_room;
    return excess <= 0;
}

/// False where somebody plays it.
bool MovieStore::drop(const QFileInfo& movie)
{
    const Descriptor mine = takeFromPlayers(movie.filePath());
    if (!mine.isOpen() || !QFile::remove(movie.filePath())) return false;
    QFile::remove(beside(movie, factsFile));
    return true;
}

QString MovieStore::partFile(const QUrl& movie) const
{
    return file(movie, partFileEnding);
}

// What it is is written first: a copy without that, or of another length, is none.
Result<void> MovieStore::take(const QUrl& movie, const RemoteVersion& version)
{
    const QString part = partFile(movie);
    const KeptFacts facts{QFileInfo(part).size(), QDateTime::currentSecsSinceEpoch(), version};
    if (auto written = replaceFile(file(movie, factsFile), facts.text()); !written) return written;
    const int renamed = std::rename(QFile::encodeName(part).constData(),
                                    QFile::encodeName(file(movie, movieFile)).constData());
    if (renamed != 0) return Error{systemReason(errno)};
    flushFolder(m_folder);
    return {};
}

KeptSummary MovieStore::summaryOf(const QString& folder)
{
    const MovieStore store(folder, 0);
    KeptSummary summary;
    summary.bytes = store.used();
    summary.movies = static_cast<int>(store.files(movieFile).size());
    qint64 last = 0;
    for (const QFileInfo& file : store.files(factsFile))
        if (const auto facts = KeptFacts::at(file.filePath())) last = std::max(last, facts->fetched);
    if (last > 0) summary.lastFetched = QDateTime::fromSecsSinceEpoch(last);
    return summary;
}

QString MovieStore::file(const QUrl& movie, const QString& extension) const
{
    return m_folder + u'/' + keptName(movie) + extension;
}

QFileInfoList MovieStore::files(const QString& extension) const
{
    return QDir(m_folder).entryInfoList({u'*' + extension}, QDir::Files | QDir::Hidden);
}

qint64 MovieStore::used() const
{
    const QFileInfoList all = QDir(m_folder).entryInfoList(QDir::Files | QDir::Hidden);
    return std::accumulate(all.cbegin(), all.cend(), qint64{0},
                           [](qint64 sum, const QFileInfo& each) { return sum + each.size(); });
}

} // namespace kestro
