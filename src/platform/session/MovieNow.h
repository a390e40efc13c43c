#pragma once

#include <QString>
#include <QUrl>
#include <QVariantMap>

namespace kestro {

/// The movie that a saver shows, as others are told of it. A plain value; both texts are empty where there is
/// none. Tested by SaverOnBusTest.
struct MovieNow {
    QString url;   ///< absolute, without the name and the password of who may fetch it
    QString title; ///< the name of the movie's file without its extension

    [[nodiscard]] static MovieNow of(const QUrl& url);
    /// What goes over the bus: "url" and "title", or nothing.
    [[nodiscard]] static MovieNow from(const QVariantMap& map);
    [[nodiscard]] QVariantMap map() const;

    [[nodiscard]] bool isNone() const { return url.isEmpty(); }
    [[nodiscard]] bool operator==(const MovieNow&) const = default;
};

} // namespace kestro
