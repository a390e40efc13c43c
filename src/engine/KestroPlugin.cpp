#include "engine/KestroPlugin.h"

#include "engine/MySaver.h"
#include "platform/base/Paths.h"
#include "platform/display/Desktop.h"
#include "platform/display/OpenGL.h"
#include "platform/movie/MpvMovieLibrary.h"
#include "settings/NoTrailers.h"
#include "settings/SettingsStore.h"

namespace kestro {

namespace {

/// What every saver of the process shares. Never destroyed: savers may live until the very end of the
/// process.
struct Shared {
    MpvMovieLibrary movies;
    SettingsStore store{homeFolder()};
    NoTrailers trailers;
    SignPictures signs{packagePrefix() + QStringLiteral("/lib/kestro/Kestro.saver/Contents/Resources")};
};

Shared& shared()
{
    static auto& instance = *new Shared;
    return instance;
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
    return MySaver::initWithFrameIsPreview(
        frame, isPreview, {desktop, common.movies, common.store, common.trailers, common.signs});
}

} // namespace kestro
