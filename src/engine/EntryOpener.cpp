#include "engine/EntryOpener.h"

#include "engine/NeverList.h"
#include "platform/base/Clock.h"
#include "platform/base/Log.h"
#include "platform/base/ShownURL.h"
#include "platform/base/URLKind.h"
#include "platform/movie/MovieLibrary.h"
#include "platform/movie/QTMovie.h"
#include "platform/movie/StillMovie.h"
#include "settings/MovieURL.h"
#include "settings/Playlist.h"
#include "settings/Settings.h"

#include <algorithm>
#include <utility>

namespace kestro {

namespace {

constexpr double restAfterFailure = 30; ///< seconds

} // namespace

EntryOpener::EntryOpener(EntrySources sources)
    : m_sources(std::move(sources))
{
}

MovieContent EntryOpener::open(const QUrl& url)
{
    if (!isValidURL(url) || passesOver(url)) return {};
    const bool isWebContent = namesWebContent(url);
    if (isWebContent && m_sources.playsWebContent()) return url;

    if (auto movie = isWebContent ? nullptr : m_sources.movies.movieWithURL(url)) return movie;
    recordFailure(url);
    return {};
}

void EntryOpener::opened(const MovieContent& content)
{
    m_isRetry = false;
    const auto* movie = std::get_if<std::shared_ptr<QTMovie>>(&content);
    m_cacheMovie = movie && leavesPictures() ? (*movie)->copyForStills() : nullptr;
}

bool EntryOpener::leavesPictures() const
{
    return m_sources.settings.fadeoutEffect() && m_sources.settings.isDynamicMode() && !m_sources.isPreview;
}

void EntryOpener::recordFailure(const QUrl& url)
{
    const bool isQuiet = m_sources.playlist.folders().holds(url) || (m_isRetry && m_logged.contains(url));
    if (!isQuiet) logLine(QStringLiteral("Failed to load movie:%1").arg(shownURL(url)));
    m_logged.insert(url);
    m_sources.playlist.addFailedURL(url);
    if (!url.isLocalFile()) m_failedAt.insert(url, m_sources.clock.now());
}

void EntryOpener::recordLateFailure(const QUrl& url)
{
    recordFailure(url);
    m_failedAt.insert(url, m_sources.clock.now());
}

bool EntryOpener::passesOver(const QUrl& url)
{
    if (m_sources.never && m_sources.never->holds(url)) return true;
    const auto failed = m_failedAt.constFind(url);
    if (failed == m_failedAt.constEnd()) return false;
    const double endOfRest = *failed + restAfterFailure;
    if (m_sources.clock.now() >= endOfRest) return false;
    m_endOfRests = std::max(m_endOfRests.value_or(endOfRest), endOfRest);
    return true;
}

void EntryOpener::forgetFailures()
{
    m_isRetry = false;
    m_failedAt.clear();
}

void EntryOpener::beginRetry()
{
    m_isRetry = true;
    m_failedAt.clear();
    m_sources.playlist.forgetFailedURLs();
}

} // namespace kestro
