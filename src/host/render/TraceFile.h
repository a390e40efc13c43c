#pragma once

#include "platform/base/Result.h"

#include <QString>

#include <memory>

class QFile;
class QJsonObject;

namespace kestro {

/// A file of JSON lines, each of them written out at once so that it can be followed while it grows. Main
/// thread. Tested by RenderRunTest.
class TraceFile final {
public:
    /// Makes the file, or empties it; the error says why it cannot.
    [[nodiscard]] static Result<std::unique_ptr<TraceFile>> create(const QString& path);
    explicit TraceFile(std::unique_ptr<QFile> file);
    ~TraceFile();

    /// Writes one more line.
    [[nodiscard]] Result<void> write(const QJsonObject& line);

private:
    std::unique_ptr<QFile> m_file;
};

} // namespace kestro
