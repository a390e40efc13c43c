#pragma once

#include "platform/base/Descriptor.h"

#include <QByteArray>

namespace kestro {

/// Memory that a process of ours is handed to write to, and that is read once it has ended: nobody has to
/// read along, and whoever says much does not wait for us. Owned by who started the process; any one thread.
class ChildOutput final {
public:
    ChildOutput();

    /// To hand over; -1 where there is no memory.
    [[nodiscard]] int number() const { return m_memory.number(); }
    /// What was written; its first bytes, or its last ones. Empty where nothing was.
    [[nodiscard]] QByteArray all() const { return first(size()); }
    [[nodiscard]] QByteArray first(qsizetype most) const;
    [[nodiscard]] QByteArray last(qsizetype most) const;

private:
    [[nodiscard]] qsizetype size() const;
    [[nodiscard]] QByteArray read(qsizetype most, qsizetype from) const;

    Descriptor m_memory;
};

} // namespace kestro
