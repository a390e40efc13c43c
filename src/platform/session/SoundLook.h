#pragma once

#include <QByteArray>
#include <QStringList>

#include <optional>

namespace kestro {

// Any thread; it may take as long as a sound server or the kernel does. Tested by CaptureLookTest.

/// What the session's sound server tells of itself, as `pactl -f json list` puts it, `pactl` being that
/// program; nothing where none listens or none tells in time. None is started.
[[nodiscard]] std::optional<QByteArray> soundServerTells(const QString& pactl);

/// The programs whose sound is heard, by what a sound server tells; a program without a name is empty, one is
/// named once. What stands still, what is muted, and the sounds of buttons and the like do not count. Nothing
/// where this is not what one tells.
[[nodiscard]] std::optional<QStringList> playingPrograms(const QByteArray& told);

/// Whether a sound card records at all, by the folder that the kernel tells of them in, "/proc/asound".
[[nodiscard]] bool isSoundCardRecording(const QString& sound);

/// Whether a sound card plays, likewise.
[[nodiscard]] bool isSoundCardPlaying(const QString& sound);

/// The programs whose sound is heard: by the session's sound server where there is one that tells, else by
/// the kernel, which knows no names: an empty one then.
[[nodiscard]] QStringList soundPlayed(const QString& pactl, const QString& sound);

} // namespace kestro
