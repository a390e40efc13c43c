#pragma once

#include "platform/base/Result.h"

#include <QByteArray>
#include <QString>

#include <functional>

namespace kestro {

/// Unpacks pages that arrive gzip-compressed, with the gzip command and two scratch files of fixed names, so
/// one at a time may work in a folder. Owned by the crawler; one thread, which waits meanwhile.
class PageUnpacker final {
public:
    /// What is unpacked to more than this many bytes is given up.
    static constexpr qint64 largestPage = qint64(256) * 1024 * 1024;

    /// `folder` is for the scratch files, which stay there; nobody else may be able to write into it.
    explicit PageUnpacker(QString folder);

    /// Whether a page starts as a gzip member without any flags does; no other is unpacked.
    [[nodiscard]] static bool isPacked(const QByteArray& page);

    /// The unpacked page. It is given up within 100 ms once `isWanted` answers false.
    [[nodiscard]] Result<QByteArray> unpack(const QByteArray& page,
                                            const std::function<bool()>& isWanted) const;

private:
    QString m_folder;
};

/// Whether a shell takes `path` as one plain word, an absolute path.
[[nodiscard]] bool isPlainPath(const QString& path);

} // namespace kestro
