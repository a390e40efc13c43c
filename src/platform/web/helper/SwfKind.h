#pragma once

#include <QByteArray>

namespace kestro {

/// Whether the first bytes of a file tell that it is an SWF: the signature of a plain, zlib or LZMA file and
/// a version. Any thread.
[[nodiscard]] bool hasSwfSignature(const QByteArray& start);
/// How many bytes hasSwfSignature wants to see.
inline constexpr int swfSignatureLength = 4;

} // namespace kestro
