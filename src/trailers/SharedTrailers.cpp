#include "trailers/SharedTrailers.h"

#include "trailers/TrailerCont.h"

namespace kestro {

QList<QUrl> SharedTrailers::lastTrailers(int count, int width, const QSet<QString>& excluded)
{
    return TrailerCont::sharedController().lastTrailers(count, width, excluded);
}

void SharedTrailers::scanLatest()
{
    TrailerCont::sharedController().scanLatest();
}

void SharedTrailers::stopThreading()
{
    if (auto* controller = TrailerCont::sharedControllerIfMade()) controller->stopThreading();
}

} // namespace kestro
