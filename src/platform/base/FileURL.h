#pragma once

#include <QString>

#include <optional>

class QUrl;

namespace kestro {

/// The path of the file of this machine that a URL names: its scheme is "file" and its host none, or
/// "localhost". Nothing for any other URL, and for a file of another machine. Any thread.
[[nodiscard]] std::optional<QString> localPath(const QUrl& url);

} // namespace kestro
