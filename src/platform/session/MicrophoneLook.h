#pragma once

#include "platform/session/SessionFact.h"

#include <QByteArray>

#include <optional>

namespace kestro {

// Any thread; it may take as long as a disk or the kernel does. Tested by CaptureLookTest.

/// The streams that record from a microphone, as `pactl -f json list` tells of them; nothing where this is
/// not what it tells. What records an output, what stands still and what only shows how loud it is, is none.
[[nodiscard]] std::optional<QList<Hindrance>> recordingStreams(const QByteArray& told);

/// The microphones in use: by the session's sound server where there is one that tells, `pactl` being the
/// program that asks it, else by the kernel, which knows no names and nothing of wireless ones.
[[nodiscard]] QList<Hindrance> microphonesInUse(const QString& pactl, const QString& sound);

} // namespace kestro
