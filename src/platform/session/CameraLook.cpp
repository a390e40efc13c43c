#include "platform/session/CameraLook.h"

#include <QByteArray>
#include <QFile>

#include <algorithm>
#include <cctype>
#include <filesystem>

namespace kestro {

namespace {

namespace fs = std::filesystem;

bool isNumber(const std::string& name)
{
    return !name.empty() && std::ranges::all_of(name, [](unsigned char c) { return std::isdigit(c) != 0; });
}

/// Calls `visit` for what is in a folder until it answers false; nothing where that cannot be read.
template <typename Visit>
void forEachIn(const fs::path& folder, Visit visit)
{
    std::error_code fault;
    for (fs::directory_iterator it(folder, fault), end; !fault && it != end; it.increment(fault))
        if (!visit(it->path())) return;
}

bool isCamera(const fs::path& path, const fs::path& devices)
{
    const std::string name = path.filename().string();
    return path.parent_path() == devices && name.starts_with("video") && isNumber(name.substr(5));
}

bool hasCameras(const fs::path& devices)
{
    bool has = false;
    forEachIn(devices, [&](const fs::path& path) { return !(has = isCamera(path, devices)); });
    return has;
}

bool holdsCamera(const fs::path& process, const fs::path& devices)
{
    bool holds = false;
    forEachIn(process / "fd", [&](const fs::path& open) {
        std::error_code fault;
        holds = isCamera(fs::read_symlink(open, fault), devices);
        return !holds;
    });
    return holds;
}

QString nameOfProcess(const fs::path& process)
{
    QFile file(QString::fromStdString((process / "comm").string()));
    if (!file.open(QIODevice::ReadOnly)) return {};
    return plainWords(QString::fromUtf8(file.read(64)));
}

} // namespace

QList<Hindrance> camerasInUse(const QString& proc, const QString& devices)
{
    const fs::path cameras = devices.toStdString();
    QList<Hindrance> found;
    if (!hasCameras(cameras)) return found;
    forEachIn(proc.toStdString(), [&](const fs::path& process) {
        if (!isNumber(process.filename().string()) || !holdsCamera(process, cameras)) return true;
        const Hindrance one{HindranceKind::Camera, nameOfProcess(process), {}};
        if (!found.contains(one)) found.append(one);
        return true;
    });
    return found;
}

} // namespace kestro
