#include "platform/movie/MovieFault.h"

#include <array>

namespace kestro {

// In the order of their kinds.
static constexpr std::array words{
    QT_TRANSLATE_NOOP("MovieFault", "no such file"),
    QT_TRANSLATE_NOOP("MovieFault", "not a file"),
    QT_TRANSLATE_NOOP("MovieFault", "not readable"),
    QT_TRANSLATE_NOOP("MovieFault", "empty file"),
    QT_TRANSLATE_NOOP("MovieFault", "not a kind of file that holds movies"),
    QT_TRANSLATE_NOOP("MovieFault", "no moving picture in it"),
    QT_TRANSLATE_NOOP("MovieFault", "no decoder for %1"),
    QT_TRANSLATE_NOOP("MovieFault", "too large: %1"),
    QT_TRANSLATE_NOOP("MovieFault", "damaged, or no movie"),
    QT_TRANSLATE_NOOP("MovieFault", "no answer in time"),
    QT_TRANSLATE_NOOP("MovieFault", "the server cannot be reached"),
    QT_TRANSLATE_NOOP("MovieFault", "the server does not have it"),
    QT_TRANSLATE_NOOP("MovieFault", "the server refuses it"),
    QT_TRANSLATE_NOOP("MovieFault", "movies are played from files, http and https only"),
    QT_TRANSLATE_NOOP("MovieFault", "not enough memory"),
    "%1",
};
static_assert(words.size() == static_cast<std::size_t>(MovieFault::Kind::Other) + 1);

const char* wordsOf(MovieFault::Kind kind)
{
    return words[static_cast<std::size_t>(kind)];
}

QString plainWords(const MovieFault& fault)
{
    return QString::fromLatin1(wordsOf(fault.kind)).replace(QStringLiteral("%1"), fault.detail);
}

} // namespace kestro
