#pragma once

#include <QStringList>

#include <chrono>
#include <optional>

namespace kestro {

/// Looks after this session until a stop signal, or until nothing tells of the person any more: the service
/// with all its parts, reachable on the bus. `after` is the time without input; where none is given that of
/// the configuration file. The saver is run with `saverWords`. Answers the exit status. An application is
/// there. Main thread. Tested by test_idle.
[[nodiscard]] int serveSession(std::optional<std::chrono::seconds> after, const QStringList& saverWords);

} // namespace kestro
