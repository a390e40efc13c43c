#pragma once

#include <QByteArray>
#include <QStringList>

namespace kestro::test {

/// What `program` writes to standard output when run with `arguments`; fails the test that runs, and answers
/// nothing, when it cannot be started, does not end within a minute or reports a failure. Main thread.
[[nodiscard]] QByteArray outputOf(const QString& program, const QStringList& arguments);

} // namespace kestro::test
