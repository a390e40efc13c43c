#include "keep/MovieCheck.h"

#include "platform/base/ChildOutput.h"
#include "platform/base/ChildProcess.h"
#include "platform/base/OneLine.h"
#include "platform/base/Paths.h"

#include <unistd.h>

namespace kestro {

namespace {

constexpr std::chrono::minutes longest{10};
constexpr qsizetype mostWords = 200;

} // namespace

Result<void> checkMovie(const QString& path)
{
    const ChildOutput words;
    const auto look = ChildProcess::start({.file = packageLibraries() + QStringLiteral("/kestro-movie-look"),
                                           .arguments = {path},
                                           .descriptors = {{words.number(), STDOUT_FILENO}},
                                           .endsWithParent = true});
    if (!look) return Error{look.error()};
    const auto end = look.value()->waitForEnd(longest);
    if (end && end->isSuccess()) return {};
    const QString reason = onOneLine(QString::fromUtf8(words.first(mostWords)));
    return Error{reason.isEmpty() ? QStringLiteral("it cannot be looked into") : reason};
}

} // namespace kestro
