#include "host/commands/Commands.h"
#include "host/commands/Program.h"
#include "platform/base/Paths.h"
#include "settings/FoldersAtOnce.h"
#include "settings/Playlist.h"
#include "settings/Settings.h"
#include "settings/SettingsStore.h"
#include "trailers/SharedTrailers.h"

namespace kestro {

namespace {

const QString expandedOption = QStringLiteral("expanded");

int showPlaylist(const Arguments& arguments)
{
    SettingsStore store(homeFolder());
    // As a preview, for which no crawl is ever started; what is listed does not depend on it.
    Settings settings(store, {.isPreview = true});
    SharedTrailers trailers;
    const bool isExpanded = arguments.has(expandedOption);
    FoldersAtOnce folders;
    Playlist playlist(settings, trailers, true, isExpanded ? &folders : nullptr);
    QByteArray lines;
    for (const QString& entry : playlist.movieFileStrings(isExpanded))
        lines += entry.toUtf8() + '\n';
    return print(lines);
}

} // namespace

Command playlistCommand()
{
    const Option expanded{
        expandedOption, {}, QStringLiteral("list what automatic entries and folders stand for now")};
    return {{QStringLiteral("playlist"), QStringLiteral("Print the playlist, one URL a line"), {expanded}},
            showPlaylist};
}

} // namespace kestro
