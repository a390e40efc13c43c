#include "platform/movie/KeptMovie.h"

#include "platform/base/FileLook.h"
#include "platform/movie/MovieProbe.h"

#include <QFile>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace kestro {

namespace {

/// The file with a lock that others may share; none where somebody is about to take it away, or has.
Descriptor hold(const QString& path)
{
    Descriptor file(
        open(QFile::encodeName(path).constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat facts = {};
    const bool isHeld = file.isOpen() && flock(file.number(), LOCK_SH | LOCK_NB) == 0 &&
                        fstat(file.number(), &facts) == 0 && S_ISREG(facts.st_mode) && facts.st_nlink > 0;
    return isHeld ? std::move(file) : Descriptor();
}

} // namespace

std::optional<KeptMovie> openKeptMovie(const QString& path)
{
    if (!isFileThere(path)) return {};
    Descriptor file = hold(path);
    if (!file.isOpen()) return {};
    const auto facts = probeMovie(path);
    if (!facts) return {};
    futimens(file.number(), nullptr);
    return KeptMovie{facts.value(), std::make_shared<Descriptor>(std::move(file))};
}

} // namespace kestro
