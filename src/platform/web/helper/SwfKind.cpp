#include "platform/web/helper/SwfKind.h"

#include <QUrl>

namespace kestro {

bool hasSwfExtension(const QUrl& url)
{
    return url.path(QUrl::FullyDecoded).endsWith(u".swf", Qt::CaseInsensitive);
}

bool hasSwfSignature(const QByteArray& start)
{
    if (start.size() < swfSignatureLength) return false;
    const bool isSigned = start.startsWith("FWS") || start.startsWith("CWS") || start.startsWith("ZWS");
    return isSigned && start[3] > 0 && static_cast<uchar>(start[3]) < 64;
}

bool isSwfType(const QString& mimeType)
{
    return mimeType == u"application/x-shockwave-flash" || mimeType == u"application/vnd.adobe.flash.movie";
}

} // namespace kestro
