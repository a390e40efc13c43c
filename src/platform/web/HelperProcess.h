#pragma once

#include "platform/base/ChildProcess.h"
#include "platform/base/Descriptor.h"

#include <QString>
#include <QStringList>

#include <memory>

namespace kestro {

/// The descriptor that the web helper finds its end of the line to this process at. It ends once this end is
/// closed, however this process ends.
inline constexpr int helperChannelNumber = 3;

/// Starts `program` as a web helper, in a session of its own, with the folder `home`, which it keeps what it
/// writes in, as its first argument, and those that are given. Main thread.
/// Tested by HelperEngineTest.
[[nodiscard]] Result<std::unique_ptr<ChildProcess>> startHelper(const QString& program, const QString& home,
                                                                const QStringList& arguments,
                                                                const Descriptor& channel);

} // namespace kestro
