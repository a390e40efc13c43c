#pragma once

#include <QByteArray>
#include <QDataStream>
#include <QIODevice>
#include <QVariant>

#include <optional>

namespace kestro {

/// A tree as bytes, its kinds of values with it, in which a number that is none is the same as itself.
inline QByteArray storedForm(const std::optional<QVariant>& tree)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << tree.has_value() << tree.value_or(QVariant());
    return bytes;
}

} // namespace kestro
