#pragma once

#include <QString>

/// Where the saver that runs is reached on the session's bus.
namespace kestro::SaverAddress {

inline const QString busName = QStringLiteral("org.kestro.Saver1");
inline const QString objectPath = QStringLiteral("/org/kestro/Saver1");
inline const QString interfaceName = QStringLiteral("org.kestro.Saver1");

} // namespace kestro::SaverAddress
