#include "engine/SaverActs.h"

#include "engine/MovieWords.h"
#include "engine/NeverList.h"
#include "engine/SaverServices.h"
#include "platform/display/desktop/Desktop.h"
#include "presentation/MovieFrame.h"
#include "settings/LatestTrailers.h"
#include "settings/Playlist.h"
#include "settings/Settings.h"

#include <QCoreApplication>

#include <algorithm>

namespace kestro {

namespace {

QString inOwnLanguage(const char* text)
{
    return QCoreApplication::translate("Kestro", text);
}

} // namespace

SaverActs::SaverActs(Settings& settings, Playlist& playlist, const SaverServices& services, bool isPreview)
    : m_settings(settings)
    , m_playlist(playlist)
    , m_trailers(services.trailers)
    , m_never(services.never)
    , m_options(isPreview ? CaptionOptions() : services.caption)
    , m_caption(m_options, services.desktop.clock())
    , m_announcement(services.desktop.clock())
{
}

bool SaverActs::act(SaverAct what, const Scene& scene)
{
    if (what == SaverAct::ShowTitle) showTitle(scene);
    if (!scene.isFirst) return false;
    switch (what) {
    case SaverAct::Louder:
        changeVolume(1, scene);
        break;
    case SaverAct::Quieter:
        changeVolume(-1, scene);
        break;
    case SaverAct::NeverAgain:
        return forget(scene);
    case SaverAct::TakeBack:
        takeBack(scene);
        break;
    case SaverAct::ShowTitle:
        break;
    }
    return false;
}

void SaverActs::showTitle(const Scene& scene)
{
    const auto words = MovieWords::of(scene.url, m_trailers);
    say(scene, words.title, words.place);
}

void SaverActs::changeVolume(int by, const Scene& scene)
{
    if (!m_settings.isSoundOn())
        return say(scene, inOwnLanguage(QT_TRANSLATE_NOOP("Kestro", "Sound is off")));
    m_volume = std::clamp(m_volume + by, 0, loudest);
    scene.movie.setVolume(volume());
    say(scene, inOwnLanguage(QT_TRANSLATE_NOOP("Kestro", "Volume: %1%")).arg(m_volume * 100 / loudest));
}

// Even steps to the ear.
float SaverActs::volume() const
{
    const float share = static_cast<float>(m_volume) / loudest;
    return share * share * share;
}

void SaverActs::applyVolume(MovieFrame& movie) const
{
    if (m_volume < loudest) movie.setVolume(volume());
}

bool SaverActs::forget(const Scene& scene)
{
    if (!m_never || !isOtherLeft(scene.url)) {
        say(scene, inOwnLanguage(QT_TRANSLATE_NOOP("Kestro", "There is no other movie")));
        return false;
    }
    m_never->add(scene.url);
    say(scene, MovieWords::of(scene.url, m_trailers).title,
        inOwnLanguage(QT_TRANSLATE_NOOP("Kestro", "Not played any more (U takes that back)")));
    return true;
}

void SaverActs::takeBack(const Scene& scene)
{
    const auto movie = m_never ? m_never->takeBack() : std::nullopt;
    if (!movie) return say(scene, inOwnLanguage(QT_TRANSLATE_NOOP("Kestro", "Nothing to take back")));
    say(scene, MovieWords::of(*movie, m_trailers).title,
        inOwnLanguage(QT_TRANSLATE_NOOP("Kestro", "Played again from now on")));
}

void SaverActs::showMovie(const QUrl& url)
{
    if (m_options.showsTitle)
        m_caption.setMovie(url.isEmpty() ? MovieWords() : MovieWords::of(url, m_trailers));
    raise();
}

void SaverActs::tick(Screen* screen)
{
    m_caption.tick(screen);
    m_announcement.tick();
}

void SaverActs::hide()
{
    m_caption.hide();
    m_announcement.hide();
}

void SaverActs::raise()
{
    m_caption.raise();
    m_announcement.raise();
}

bool SaverActs::isOtherLeft(const QUrl& movie)
{
    return std::ranges::any_of(m_playlist.fileList(), [this, &movie](const QUrl& other) {
        return other != movie && !m_never->holds(other);
    });
}

void SaverActs::say(const Scene& scene, const QString& title, const QString& detail)
{
    m_announcement.say({.clock = {}, .title = title, .detail = detail}, scene.screen);
}

} // namespace kestro
