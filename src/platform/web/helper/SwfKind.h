#pragma once

#include <QByteArray>
#include <QString>

class QUrl;

namespace kestro {

// What tells an SWF file. Any thread.

/// By the extension of the address's path, whatever its case.
[[nodiscard]] bool hasSwfExtension(const QUrl& url);
/// By its first bytes: the signature of a plain, zlib or LZMA file and a version.
[[nodiscard]] bool hasSwfSignature(const QByteArray& start);
/// By the type that a server gives it.
[[nodiscard]] bool isSwfType(const QString& mimeType);
/// How many bytes hasSwfSignature wants to see.
inline constexpr int swfSignatureLength = 4;

} // namespace kestro
