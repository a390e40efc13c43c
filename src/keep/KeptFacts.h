#pragma once

#include "platform/network/Download.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace kestro {

/// What is known of the copy of a movie, in a small file beside it. A plain value; any thread.
/// Tested by MovieStoreTest.
struct KeptFacts {
    qint64 length = 0;  ///< bytes
    qint64 fetched = 0; ///< seconds since 1970
    RemoteVersion version = {};

    [[nodiscard]] QByteArray text() const;
    /// Of the file at `path`; nothing where it is not there or says something else.
    [[nodiscard]] static std::optional<KeptFacts> at(const QString& path);
};

} // namespace kestro
