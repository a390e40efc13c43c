#pragma once

#include <QByteArray>
#include <QDataStream>
#include <QIODevice>
#include <QVariant>

namespace kestro {

/// A tree as bytes, to compare it by: with the kinds of its values, and a number that is none the same as
/// itself.
inline QByteArray storedForm(const QVariant& tree)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << tree;
    return bytes;
}

} // namespace kestro
