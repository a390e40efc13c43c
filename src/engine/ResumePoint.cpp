#include "engine/ResumePoint.h"

#include "platform/base/Log.h"
#include "platform/base/ShownURL.h"
#include "platform/base/StoredValue.h"
#include "platform/base/URLKind.h"
#include "platform/movie/QTMovie.h"
#include "settings/Options.h"
#include "settings/Settings.h"
#include "settings/SettingsStore.h"

#include <utility>

namespace kestro {

ResumePoint::ResumePoint(const Settings& settings, SettingsStore& store)
    : m_settings(settings)
    , m_store(store)
{
}

std::optional<QVariant> ResumePoint::stored(const QString& key) const
{
    return m_isWaiting && m_settings.canContinue() ? m_store.defaultsForKey(key) : std::nullopt;
}

std::optional<QString> ResumePoint::movieName() const
{
    const auto name = stored(resumeKey::lastMovie);
    return name ? std::optional(name->toString()) : std::nullopt;
}

bool ResumePoint::goTo(QTMovie& movie)
{
    if (!m_isWaiting || movie.state() != QTMovie::State::Loaded) return false;
    const auto position = stored(resumeKey::lastPos);
    end();
    if (!position || GetMovieDuration(movie) < intValue(*position)) return false;
    SetMovieTimeValue(movie, intValue(*position));
    return true;
}

void ResumePoint::store(const QTMovie& movie)
{
    if (!m_settings.canContinue()) return;
    const QUrl url = movie.url();
    logLine(QStringLiteral("URL = %1").arg(shownURL(url)));
    if (!url.isValid() || m_isWaiting) return;
    m_store.setDefaults({{resumeKey::lastMovie, lastPathComponent(url)},
                         {resumeKey::lastPos, storedInt(GetMovieTime(movie))}});
}

} // namespace kestro
