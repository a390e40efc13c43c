#pragma once

#include <QString>

#include <chrono>
#include <optional>
#include <stop_token>

namespace kestro {

/// Whether there is a file at `path`; answered once its disk has answered, also to opening and reading it. A
/// disk may never do that, and whoever asks it cannot be ended then, nor the process that he is a thread of:
/// so a process of its own asks, and only the calling thread waits for it. Any thread but the main one.
[[nodiscard]] bool isFileThere(const QString& path);

/// The same for who cannot wait longer than `longest`: no, where the disk has not answered by then. Any
/// thread; the process that asks the disk is left to itself.
[[nodiscard]] bool isFileThere(const QString& path, std::chrono::milliseconds longest);

/// The same for who may be told to stop: nothing where the disk has not answered by then, or after `longest`.
[[nodiscard]] std::optional<bool> isFileThere(const QString& path, std::chrono::milliseconds longest,
                                              const std::stop_token& stop);

} // namespace kestro
