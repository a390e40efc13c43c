#include "config_ui/PlaylistEntry.h"

#include "settings/MovieURL.h"

namespace kestro {

PlaylistEntry entryOfURL(const QUrl& url)
{
    return {url, absoluteString(url)};
}

PlaylistEntry entryOfFile(const QString& path)
{
    return entryOfURL(QUrl::fromLocalFile(path));
}

std::optional<PlaylistEntry> entryOfText(const QString& text)
{
    const QString trimmed = text.trimmed();
    const QUrl url(trimmed, QUrl::StrictMode);
    const bool isAbsolute = url.isValid() && !url.isRelative();
    const bool isOnServer = url.scheme().startsWith(u"http");
    const bool leadsSomewhere = !url.host().isEmpty() || (!isOnServer && !url.path().isEmpty());
    if (!isAbsolute || !leadsSomewhere) return {};
    return PlaylistEntry{url, trimmed};
}

} // namespace kestro
