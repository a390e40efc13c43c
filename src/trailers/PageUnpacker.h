#pragma once

#include "platform/base/Result.h"

#include <QByteArray>
#include <QString>

#include <functional>

namespace kestro {

/// Unpacks pages that arrive gzip-compressed, with the gzip command and two scratch files in a folder of
/// their own, which are gone once the page is read. What is too large unpacked (see Bounds) is given up.
/// Owned by the crawler; one thread, which waits meanwhile.
class PageUnpacker final {
public:
    /// `folder` is where the scratch files get their folder: on a disk rather than in memory, for they may be
    /// large. It is made where it is missing.
    explicit PageUnpacker(QString folder);

    /// Takes away what unpackings left that were killed.
    void sweep() const;

    /// Whether a page starts as a gzip member without any flags does; no other is unpacked.
    [[nodiscard]] static bool isPacked(const QByteArray& page);

    /// The unpacked page. It is given up within 100 ms once `isWanted` answers false.
    [[nodiscard]] Result<QByteArray> unpack(const QByteArray& page, const std::function<bool()>& isWanted);
    /// The bytes that were unpacked so far, those of pages that were too large too.
    [[nodiscard]] qint64 unpackedBytes() const { return m_unpackedBytes; }

private:
    QString m_folder;
    qint64 m_unpackedBytes = 0;
};

/// The folder for unpacking that suits this user: the cache folder, or the system's temporary one where the
/// name of that cannot be given to a shell.
[[nodiscard]] QString unpackingFolder();

/// Whether a shell takes `path` as one plain word, an absolute path.
[[nodiscard]] bool isPlainPath(const QString& path);

} // namespace kestro
