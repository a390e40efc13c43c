#pragma once

#include <QByteArray>
#include <QList>
#include <QUrl>

#include <optional>

namespace kestro {

// How the saver tells the keeper's process which movies it wants: each in a line, an empty one behind all of
// them. Plain functions; any thread.

/// What is written.
[[nodiscard]] QByteArray textOf(const QList<QUrl>& wanted);

/// The newest list that is whole in `text`, which loses all that was read; nothing where there is none yet.
[[nodiscard]] std::optional<QList<QUrl>> takeWanted(QByteArray& text);

} // namespace kestro
