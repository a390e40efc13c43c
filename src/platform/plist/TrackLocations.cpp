#include "platform/plist/TrackLocations.h"

#include <QByteArray>

#include <pugixml.hpp>
#include <string_view>

namespace kestro {

std::optional<QStringList> trackLocations(const QByteArray& xspf)
{
    pugi::xml_document document;
    if (!document.load_buffer(xspf.constData(), std::size_t(xspf.size()))) return {};
    const pugi::xml_node playlist = document.document_element();
    if (playlist.name() != std::string_view("playlist")) return {};
    QStringList locations;
    for (const pugi::xml_node track : playlist.child("trackList").children("track")) {
        const QString location = QString::fromUtf8(track.child_value("location")).trimmed();
        if (!location.isEmpty()) locations.append(location);
    }
    return locations;
}

} // namespace kestro
