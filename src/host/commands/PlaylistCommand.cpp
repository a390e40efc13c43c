#include "host/commands/Commands.h"
#include "host/commands/Program.h"
#include "platform/base/Paths.h"
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
    Playlist playlist(settings, trailers, true);
    QByteArray lines;
    for (const QString& entry : playlist.movieFileStrings(arguments.has(expandedOption)))
        lines += entry.toUtf8() + '\n';
    return print(lines);
}

} // namespace

Command playlistCommand()
{
    const Option expanded{
        expandedOption, {}, QStringLiteral("list what the automatic entries stand for now")};
    return {{QStringLiteral("playlist"), QStringLiteral("Print the playlist, one URL a line"), {expanded}},
            showPlaylist};
}

} // namespace kestro
