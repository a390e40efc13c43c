#pragma once

#include <QByteArray>

#include <chrono>

namespace kestro {

/// Where the system's bus listens, by DBUS_SYSTEM_BUS_ADDRESS, else at its usual place.
[[nodiscard]] QByteArray systemBusAddress();

/// Whether a message bus at that address greets who connects, within `longest`. Qt has one thread for all its
/// buses, so a bus that hangs would hold up whatever else uses one: it is looked at in this way first.
/// Sockets by a path or an abstract name alone; any other address counts as none. It waits; any thread.
/// Tested by PowerAdviceTest.
[[nodiscard]] bool isBusAnswering(const QByteArray& address, std::chrono::milliseconds longest);

} // namespace kestro
