#include "settings/FoldersAtOnce.h"

#include "platform/base/Log.h"
#include "platform/base/MovieFolder.h"
#include "settings/FolderEntry.h"

namespace kestro {

namespace {

constexpr std::chrono::seconds longest{10};

} // namespace

std::shared_ptr<const FolderMovies> FoldersAtOnce::follow(const FolderEntry& entry, bool)
{
    auto folder = std::make_shared<FolderMovies>();
    const auto movies = moviesIn(movieFolder(entry), longest);
    if (!movies) logLine(QStringLiteral("%1: no answer.").arg(entry.path));
    folder->take(movies.value_or(QList<QUrl>()), movies.has_value());
    return folder;
}

} // namespace kestro
