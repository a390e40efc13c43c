#include "keep/MovieKeeper.h"

#include "keep/PartFile.h"
#include "platform/base/Clock.h"
#include "platform/base/KeptMovies.h"
#include "platform/base/Log.h"
#include "platform/base/ShownURL.h"

#include <QLocale>

#include <utility>

namespace kestro {

namespace {

constexpr double restAfterFailure = 600; ///< seconds

QString sizeOf(qint64 bytes)
{
    return QLocale::c().formattedDataSize(bytes, 1, QLocale::DataSizeSIFormat);
}

} // namespace

MovieKeeper::MovieKeeper(MovieStore& store, Check check, const Clock& clock, const FetchLimits& limits)
    : m_store(store)
    , m_check(std::move(check))
    , m_clock(clock)
    , m_download(limits)
{
}

bool MovieKeeper::keepOne(const QList<QUrl>& wanted)
{
    const bool isFull = m_fullSince && m_clock.now() - *m_fullSince < restAfterFailure;
    if (m_hasStopped || isFull) return false;
    for (const QUrl& movie : wanted) {
        if (!canBeKept(movie) || isResting(movie) || m_store.isRefused(movie)) continue;
        const auto known =
            m_store.has(movie) ? m_store.staleVersion(movie) : std::optional<RemoteVersion>(std::in_place);
        if (!known) continue;
        fetch(movie, *known, wanted);
        return true;
    }
    return false;
}

bool MovieKeeper::isResting(const QUrl& movie) const
{
    const auto failed = m_failedAt.constFind(movie);
    return failed != m_failedAt.constEnd() && m_clock.now() - *failed < restAfterFailure;
}

void MovieKeeper::fetch(const QUrl& movie, const RemoteVersion& known, const QList<QUrl>& wanted)
{
    PartFile part(m_store, movie, wanted);
    const auto answer = m_download.run(movie, known, part);
    if (!answer) return giveUp(movie, part, answer.failure());
    if (!answer.value().isNew) return m_store.noteChecked(movie);
    take(movie, part, answer.value().version);
}

void MovieKeeper::take(const QUrl& movie, PartFile& part, const RemoteVersion& version)
{
    if (!part.finish()) return giveUp(movie, part, {.message = QStringLiteral("it came in part")});
    if (const auto checked = m_check(m_store.partFile(movie)); !checked) {
        m_store.refuse(movie);
        return pass(movie, checked.error());
    }
    if (const auto taken = m_store.take(movie, version); !taken) return stop(taken.error());
    logLine(QStringLiteral("Keeps %1, %2. %3").arg(shownURL(movie), sizeOf(part.bytes()), summary()));
}

void MovieKeeper::giveUp(const QUrl& movie, const PartFile& part, const FetchFault& fault)
{
    using Kind = StoreFault::Kind;
    if (fault.kind == FetchFault::Kind::Cancelled) return;
    if (part.isEndless()) return pass(movie, QStringLiteral("its server does not say how long it is"));
    if (!part.fault()) return pass(movie, fault.message);
    if (part.fault()->kind == Kind::Disk) return stop(part.fault()->message);
    if (part.fault()->kind == Kind::TooLarge) return pass(movie, part.fault()->message);
    m_fullSince = m_clock.now();
}

/// No line for each movie: it would be the same reason for all.
void MovieKeeper::stop(const QString& reason)
{
    m_hasStopped = true;
    logLine(QStringLiteral("Movies are not kept any more: %1").arg(reason));
}

void MovieKeeper::pass(const QUrl& movie, const QString& reason)
{
    m_failedAt.insert(movie, m_clock.now());
    logLine(QStringLiteral("Cannot keep %1: %2").arg(shownURL(movie), reason));
}

QString MovieKeeper::summary() const
{
    const KeptSummary kept = m_store.summary();
    return QStringLiteral("Kept movies: %1, %2 of %3.")
        .arg(kept.movies)
        .arg(sizeOf(kept.bytes), sizeOf(m_store.room()));
}

} // namespace kestro
