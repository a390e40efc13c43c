#include "host/doctor/EntriesExamination.h"
#include "host/doctor/Examinations.h"
#include "platform/base/Paths.h"
#include "settings/MovieURL.h"
#include "settings/Playlist.h"
#include "settings/Settings.h"
#include "settings/SettingsStore.h"
#include "trailers/SharedTrailers.h"

#include <algorithm>

namespace kestro {

namespace {

constexpr std::chrono::milliseconds longestEntry{6000};

QList<QUrl> storedEntries()
{
    SettingsStore store(homeFolder());
    Settings settings(store, {.isPreview = true});
    SharedTrailers trailers;
    return Playlist(settings, trailers, true).movieFileList(false);
}

AutomaticEntries shareOf(qsizetype automatic, qsizetype others)
{
    if (automatic == 0) return AutomaticEntries::None;
    return others > 0 ? AutomaticEntries::Some : AutomaticEntries::All;
}

} // namespace

DoctorRun::Examinations allExaminations()
{
    QList<QUrl> entries = storedEntries();
    const qsizetype automatic = entries.removeIf(isAutomaticEntry);
    DoctorRun::Examinations all;
    all.push_back(versionsExamination());
    all.push_back(startExamination());
    all.push_back(graphicsExamination());
    all.push_back(settingsExamination());
    if (!entries.isEmpty() || automatic == 0)
        all.push_back(std::make_unique<EntriesExamination>(entries, longestEntry, openEntry));
    if (auto trailers = trailersExamination(shareOf(automatic, entries.size())))
        all.push_back(std::move(trailers));
    if (auto kept = keptMoviesExamination()) all.push_back(std::move(kept));
    all.push_back(webExamination());
    all.push_back(saversExamination());
    return all;
}

} // namespace kestro
