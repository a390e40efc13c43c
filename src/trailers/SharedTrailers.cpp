#include "trailers/SharedTrailers.h"

#include "platform/base/StoredValue.h"
#include "settings/MovieURL.h"
#include "trailers/TrailerCont.h"

namespace kestro {

QList<QUrl> SharedTrailers::lastTrailers(int count, int width, const QSet<QString>& excluded)
{
    return TrailerCont::sharedController().lastTrailers(count, width, excluded);
}

std::optional<int> SharedTrailers::yearOf(const QUrl& url)
{
    const auto* const controller = TrailerCont::sharedControllerIfMade();
    const auto record = controller ? controller->list().record(absoluteString(url)) : std::nullopt;
    const int year = record && record->date ? intValue(record->date->section(u'/', 0, 0)) : 0;
    return year > 0 ? std::optional(year) : std::nullopt;
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
