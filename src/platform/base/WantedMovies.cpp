#include "platform/base/WantedMovies.h"

#include <utility>

namespace kestro {

namespace {

const QByteArray endOfList = QByteArrayLiteral("\n\n");

QList<QUrl> moviesIn(const QByteArray& list)
{
    QList<QUrl> movies;
    for (const QByteArray& line : list.split('\n'))
        if (!line.isEmpty()) movies.append(QUrl::fromEncoded(line));
    return movies;
}

} // namespace

QByteArray textOf(const QList<QUrl>& wanted)
{
    QByteArray text;
    for (const QUrl& movie : wanted)
        text += '\n' + movie.toEncoded();
    return text + endOfList;
}

std::optional<QList<QUrl>> takeWanted(QByteArray& text)
{
    std::optional<QList<QUrl>> wanted;
    for (qsizetype end = text.indexOf(endOfList); end >= 0; end = text.indexOf(endOfList)) {
        wanted = moviesIn(text.first(end));
        text.remove(0, end + endOfList.size());
    }
    return wanted;
}

} // namespace kestro
