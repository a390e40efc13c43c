#include "platform/base/FileLook.h"

#include "platform/base/ChildProcess.h"
#include "platform/base/Paths.h"

#include <QDeadlineTimer>
#include <QFileInfo>

namespace kestro {

namespace {

constexpr std::chrono::milliseconds stopLatency{50};

// A file of ours it might hold open for ever.
Result<std::unique_ptr<ChildProcess>> beginLook(const QString& path)
{
    return ChildProcess::start({.file = packageLibraries() + QStringLiteral("/kestro-file-look"),
                                .arguments = {path},
                                .environment = QStringList(),
                                .group = ChildProgram::Group::OwnSession});
}

} // namespace

bool isFileThere(const QString& path, std::chrono::milliseconds longest)
{
    const auto look = beginLook(path);
    if (!look) return false;
    const auto end = look.value()->waitForEnd(longest);
    return end && end->isSuccess();
}

std::optional<bool> isFileThere(const QString& path, std::chrono::milliseconds longest,
                                const std::stop_token& stop)
{
    const auto look = beginLook(path);
    if (!look) return QFileInfo::exists(path);
    const QDeadlineTimer bound(longest);
    while (!stop.stop_requested() && !bound.hasExpired())
        if (const auto end = look.value()->waitForEnd(stopLatency)) return end->isSuccess();
    return {};
}

bool isFileThere(const QString& path)
{
    const auto look = beginLook(path);
    return look ? look.value()->waitForEnd().isSuccess() : QFileInfo::exists(path);
}

} // namespace kestro
