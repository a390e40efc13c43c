#include "Target.h"
#include "platform/base/Bounds.h"
#include "platform/base/FileURL.h"
#include "platform/base/URLKind.h"
#include "settings/ListMovies.h"

#include <QByteArray>
#include <QString>
#include <QUrl>

using namespace kestro;

namespace {

/// Without what begins or ends a line or a comment.
bool canBeALine(const QByteArray& text)
{
    return text == text.trimmed() && !text.startsWith('#') && !text.contains('\n');
}

void tryMovie(const QUrl& movie)
{
    const auto path = localPath(movie);
    expect(isWebURL(movie) || path.has_value(), "a movie is of the web or of this machine");
    if (!path) return;
    expect(path->startsWith(u'/'), "a file has a whole path");
    expect(!isCalledAsList(*path), "a list names no further lists");
}

} // namespace

/// The input is a playlist file, after a first byte that says of which of its two forms. What it names are
/// movies, not too many of them; a list of those that are on the web names the same ones.
void kestro::tryInput(std::string_view input)
{
    if (input.empty()) return;
    const bool isXspf = input.front() == 'x';
    const QByteArray text(input.data() + 1, qsizetype(input.size()) - 1);
    const QString path =
        isXspf ? QStringLiteral("/home/ada/list.xspf") : QStringLiteral("/home/ada/list.m3u");
    const auto movies = moviesOfList(path, text);
    expect(movies.size() <= Bounds::listFileMovies, "a list has an end");
    QByteArray written;
    QList<QUrl> onTheWeb;
    for (const QUrl& movie : movies) {
        tryMovie(movie);
        const QByteArray line = movie.toEncoded();
        if (!isWebURL(movie) || !canBeALine(line)) continue;
        onTheWeb.append(movie);
        written += line + '\n';
    }
    expect(moviesOfList(QStringLiteral("/home/ada/other.m3u8"), written).size() == onTheWeb.size(),
           "what is written down is read again");
}
