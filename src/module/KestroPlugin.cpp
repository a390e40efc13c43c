#include "module/KestroPlugin.h"

#include "engine/BackSaverHost.h"
#include "engine/KeeperProcess.h"
#include "engine/MySaver.h"
#include "engine/NeverList.h"
#include "engine/ShuffleRecord.h"
#include "platform/base/ConfigurationFile.h"
#include "platform/base/KeptMovies.h"
#include "platform/base/Paths.h"
#include "platform/base/Random.h"
#include "platform/base/StateFolder.h"
#include "platform/display/desktop/Desktop.h"
#include "platform/display/desktop/Notifications.h"
#include "platform/display/gl/OpenGL.h"
#include "platform/movie/MpvMovieLibrary.h"
#include "platform/web/HelperEngine.h"
#include "settings/CacheOptions.h"
#include "settings/CaptionOptions.h"
#include "settings/EntryMarks.h"
#include "settings/MovieOptions.h"
#include "settings/SettingsStore.h"
#include "settings/WatchedFolders.h"
#include "trailers/SharedTrailers.h"

#include <optional>

namespace kestro {

namespace {

/// What every saver of the process shares. Never destroyed: savers may live until the very end of the
/// process.
struct Shared {
    MpvMovieLibrary movies;
    HelperEngine web{HelperSettings::ofPackage()};
    SettingsStore store{homeFolder()};
    SharedTrailers trailers;
    SystemRandom random;
    WatchedFolders folders{random};
    std::optional<ShuffleRecord> shuffle;
    NeverList never{stateFolder() + QStringLiteral("/never")};
    EntryMarks marks;
    std::optional<KeeperProcess> keeper;
    BackSaverHost backSavers{homeFolder()};
    SignPictures signs{packageLibraries() + QStringLiteral("/Kestro.saver/Contents/Resources")};
};

Shared& shared()
{
    static auto& instance = *new Shared;
    return instance;
}

/// What fetches movies ahead, where a person chose that they are kept; null where nothing is fetched.
AheadFetch* aheadFetch(const ConfigurationFile& configuration, bool isPreview)
{
    const qint64 bytes = cacheOptionsFrom(configuration).bytes;
    shared().movies.setKeptMovies(bytes > 0 ? keptMoviesFolder() : QString());
    if (bytes == 0 || isPreview || shared().store.leavesNothing()) return nullptr;
    if (!shared().keeper) shared().keeper.emplace(keptMoviesFolder(), bytes, shared().never);
    return &*shared().keeper;
}

/// A host may leave the process without taking its savers apart. A crawl that runs then is to keep what it
/// has, and no thread of ours is to be under way.
void stopThreadsAtTheEnd(NotificationCenter& notifications)
{
    notifications.removeObserver(&shared());
    notifications.addObserver(&shared(), Notice::ApplicationWillTerminate, nullptr, [] {
        shared().web.stopFetching();
        shared().trailers.stopThreading();
    });
}

} // namespace

bool KestroPlugin::isScreenSaverView(const QString& className) const
{
    return className == u"MySaver";
}

void KestroPlugin::setOptionsForThisRun(const QVariantMap& options)
{
    shared().store.setOptionsForThisRun(options);
}

std::shared_ptr<ScreenSaverView> KestroPlugin::initWithFrameIsPreview(const QString& className,
                                                                      const Rect& frame, bool isPreview,
                                                                      Desktop& desktop)
{
    if (!isScreenSaverView(className)) return nullptr;
    auto& common = shared();
    common.movies.setOpenGL(desktop.openGL());
    const ConfigurationFile file = ConfigurationFile::ofUser();
    const MovieOptions options = movieOptionsFrom(file);
    common.marks = EntryMarks(file, configurationFile());
    if (options.remembersShuffle && !common.shuffle && !isPreview)
        common.shuffle.emplace(stateFolder() + QStringLiteral("/shuffle"));
    stopThreadsAtTheEnd(desktop.notifications());
    return MySaver::initWithFrameIsPreview(
        frame, isPreview,
        {desktop, common.movies, common.store, common.trailers, common.signs, common.backSavers, &common.web,
         options, &common.folders, common.shuffle ? &*common.shuffle : nullptr, &common.never,
         CaptionOptions::from(file), &common.marks, placeFrom(file), aheadFetch(file, isPreview)});
}

} // namespace kestro
