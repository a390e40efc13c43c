#include "platform/session/GamePadFact.h"

#include <QDir>
#include <QFileInfo>

namespace kestro {

GamePadFact::Machine GamePadFact::thisMachine()
{
    using Seconds = std::chrono::duration<double>;
    return {QStringLiteral("/dev/input"), &GamePad::open,
            [] { return Seconds(std::chrono::steady_clock::now().time_since_epoch()).count(); }};
}

GamePadFact::GamePadFact(std::chrono::seconds span, Machine machine)
    : m_span(span)
    , m_machine(std::move(machine))
{
    if (QFileInfo(m_machine.folder).isDir()) m_watcher.addPath(m_machine.folder);
    QObject::connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_watcher, [this] { findPads(); });
    findPads();
}

void GamePadFact::findPads()
{
    std::erase_if(m_pads, [](const auto& pad) { return !pad.second->look(); });
    const QDir folder(m_machine.folder);
    for (const QString& name : folder.entryList({QStringLiteral("event*")}, QDir::System | QDir::Files)) {
        const QString path = folder.filePath(name);
        if (m_pads.contains(path)) continue;
        if (auto pad = m_machine.open(path)) m_pads.emplace(path, std::move(pad));
    }
}

void GamePadFact::ask(std::function<void()> onAnswer)
{
    findPads();
    QList<Hindrance> found;
    const double earliest = m_machine.now() - std::chrono::duration<double>(m_span).count();
    for (const auto& [path, pad] : m_pads)
        if (pad->lastMoved() && *pad->lastMoved() > earliest)
            found.append({HindranceKind::GamePad, pad->name(), {}});
    keep(found);
    onAnswer();
}

} // namespace kestro
