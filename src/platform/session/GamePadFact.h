#pragma once

#include "platform/session/GamePad.h"
#include "platform/session/KeptFact.h"

#include <QFileSystemWatcher>

#include <chrono>
#include <map>

namespace kestro {

/// That somebody plays with a game pad, which compositors do not take for activity: something was pressed
/// within some time. Pads that the person may read are held open from when they are plugged in. Main thread.
class GamePadFact final : public KeptFact {
public:
    /// What it needs of the machine, so that tests can stand in for it.
    struct Machine {
        QString folder;                                               ///< "/dev/input"
        std::function<std::unique_ptr<GamePad>(const QString&)> open; ///< the pad at a path, or null
        std::function<double()> now;                                  ///< seconds of the monotonic clock
    };
    [[nodiscard]] static Machine thisMachine();

    /// A press counts for as long as `span`.
    GamePadFact(std::chrono::seconds span, Machine machine);

    void setSpan(std::chrono::seconds span) { m_span = span; }
    /// Answers at once.
    void ask(std::function<void()> onAnswer) override;

private:
    void findPads();

    std::chrono::seconds m_span;
    Machine m_machine;
    QFileSystemWatcher m_watcher; ///< tells when one is plugged in, and when the person may read it
    std::map<QString, std::unique_ptr<GamePad>> m_pads;
};

} // namespace kestro
