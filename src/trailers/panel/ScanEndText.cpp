#include "trailers/panel/ScanEndText.h"

#include "trailers/ScanEnd.h"

#include <QStringList>

namespace kestro {

QString ScanEndText::line(const ScanEnd& end)
{
    switch (end.kind) {
    case ScanEnd::Kind::Whole:
        return tr("Scan finished. Pages read: %1").arg(end.pages);
    case ScanEnd::Kind::Stopped:
        return tr("Scan stopped. Pages read: %1").arg(end.pages);
    case ScanEnd::Kind::Bounded:
        return tr("Scan ended: the site has more than fits. Pages read: %1").arg(end.pages);
    case ScanEnd::Kind::NoPage:
        return tr("The page at this address cannot be read.");
    case ScanEnd::Kind::NoAddress:
        return tr("This is not the address of a page.");
    case ScanEnd::Kind::Taken:
        break;
    }
    return tr("The site is being scanned already.");
}

QString ScanEndText::notes(const ScanEnd& end)
{
    QStringList sentences;
    if (!end.otherHost.isEmpty())
        sentences << tr("The site's host is set to %1, but this page is on %2: no link is followed.")
                         .arg(end.otherHost, end.host);
    if (end.refused > 0)
        sentences << tr("Pages refused: %1. A start page without <html> has pages read as ASCII, and these "
                        "hold other letters.")
                         .arg(end.refused);
    if (end.isAllVisited)
        sentences << tr("The pages that this address leads to were all read before; Clear List forgets them, "
                        "and a scan reads them again.");
    if (!end.lockFault.isEmpty())
        sentences << tr("A second scan at the same time cannot be kept away: %1").arg(end.lockFault);
    return sentences.join(u' ');
}

} // namespace kestro
