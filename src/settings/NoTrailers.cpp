#include "settings/NoTrailers.h"

namespace kestro {

QList<QUrl> NoTrailers::lastTrailers(int, int, const QSet<QString>&)
{
    return {};
}

void NoTrailers::scanLatest(TrailerClient&) {}

void NoTrailers::stopThreading() {}

} // namespace kestro
