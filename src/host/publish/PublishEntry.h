#pragma once

#include <QString>

namespace kestro {

class Arguments;

// What `kestro publish` is told, and where the work is. It knows the decoders, which take longer to load than
// most commands run: it is in a library of its own, which the command opens.
inline const QString publishLibrary = QStringLiteral("publishing");
inline constexpr const char* publishEntry = "kestroPublish";
/// What `publishEntry` names there: publishes, and answers the exit status. Main thread. Tested by
/// test_publish.
using PublishEntry = int (*)(const Arguments&);

inline const QString baseUrlOption = QStringLiteral("base-url");
inline const QString copyOption = QStringLiteral("copy");

} // namespace kestro
