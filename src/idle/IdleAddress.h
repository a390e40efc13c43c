#pragma once

#include <QString>

/// Where the idle service is reached on the session's bus.
namespace kestro::IdleAddress {

inline const QString busName = QStringLiteral("org.kestro.Idle");
inline const QString objectPath = QStringLiteral("/org/kestro/Idle");
inline const QString interfaceName = QStringLiteral("org.kestro.Idle1");

} // namespace kestro::IdleAddress
