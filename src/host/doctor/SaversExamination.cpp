#include "host/doctor/Examinations.h"
#include "host/hacks/HackCatalog.h"
#include "platform/base/Paths.h"
#include "platform/saver/Hack.h"
#include "settings/Settings.h"
#include "settings/SettingsStore.h"

#include <QFileInfo>

namespace kestro {

namespace {

Finding behind()
{
    SettingsStore store(homeFolder());
    const auto path = Settings(store, {.isPreview = true}).backSaver();
    if (!path) return fine(QStringLiteral("no saver behind the movies"));
    if (QFileInfo::exists(*path) || QFileInfo::exists(platformPath(*path)))
        return fine(QStringLiteral("behind the movies: ") + *path);
    return broken(QStringLiteral("the saver behind the movies is not installed any more: ") + *path,
                  QStringLiteral("choose another in kestro settings"));
}

Finding hacks()
{
    const auto count = installedHacks(hackDescriptionFolders(), hackFolders()).size();
    if (count > 0) return fine(QStringLiteral("%1 savers of xscreensaver can be imported").arg(count));
    return better(QStringLiteral("no savers of xscreensaver are installed"),
                  QStringLiteral("install xscreensaver-data, then kestro import-hacks"));
}

} // namespace

std::unique_ptr<Examination> saversExamination()
{
    return std::make_unique<QuickExamination>(QStringLiteral("Other savers"), [] {
        return Findings{hacks(), behind()};
    });
}

} // namespace kestro
