#include "platform/web/helper/SwfKind.h"

namespace kestro {

bool hasSwfSignature(const QByteArray& start)
{
    if (start.size() < swfSignatureLength) return false;
    const bool isSigned = start.startsWith("FWS") || start.startsWith("CWS") || start.startsWith("ZWS");
    return isSigned && start[3] > 0 && static_cast<uchar>(start[3]) < 64;
}

} // namespace kestro
