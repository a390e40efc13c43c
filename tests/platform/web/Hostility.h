#pragma once

#include <QString>

namespace kestro {

/// What a helper in foreign hands may do on its line to the saver, by what the address of a page says:
/// "flood:" says without end, "lie:" names sizes, slots, memory and pages that there are none of, "rubble:"
/// sends what is no message, "endless:" does so until the line is closed, "descriptors:" sends
/// hundreds of them, "eat:" takes memory, "hoard:" memory that shows in no address space, "breed:" starts
/// processes. False for another address, else true once that is done.
[[nodiscard]] bool beHostile(const QString& address, int line, quint32 view);

} // namespace kestro
