#include "host/doctor/Examinations.h"
#include "keep/MovieStore.h"
#include "platform/base/ConfigurationFile.h"
#include "platform/base/KeptMovies.h"
#include "settings/CacheOptions.h"

#include <QLocale>

namespace kestro {

namespace {

constexpr std::chrono::milliseconds longest{3000};

Findings look(const QString& folder, qint64 room)
{
    const KeptSummary kept = MovieStore::summaryOf(folder);
    const auto sizeOf = [](qint64 bytes) {
        return QLocale::c().formattedDataSize(bytes, 1, QLocale::DataSizeSIFormat);
    };
    const QString words =
        QStringLiteral("%1 movies, %2 of %3").arg(kept.movies).arg(sizeOf(kept.bytes), sizeOf(room));
    if (kept.lastFetched.isNull()) return {fine(words)};
    return {fine(words + QStringLiteral(", the last one of %1").arg(kept.lastFetched.toString(Qt::ISODate)))};
}

} // namespace

std::unique_ptr<Examination> keptMoviesExamination()
{
    const qint64 room = cacheOptionsFrom(ConfigurationFile::ofUser()).bytes;
    if (room == 0) return nullptr;
    return std::make_unique<SlowExamination>(
        QStringLiteral("Kept movies"), longest,
        [folder = keptMoviesFolder(), room] { return look(folder, room); });
}

} // namespace kestro
