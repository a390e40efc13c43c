#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace kestro {

/// A way in which a graphics card decodes movies, with the codecs that it can be asked for.
struct CardDecoding {
    QString way;        ///< "cuda", "vaapi", "vdpau"
    QStringList codecs; ///< among those of movies of today: "h264", "hevc", "vp9", "av1", "mpeg2video"
};

/// The ways that can be opened here. A card may still refuse one movie or another. A driver may hang in it,
/// or crash. Any thread.
[[nodiscard]] QList<CardDecoding> cardDecodings();

/// The codecs that the way of that name can be asked for; empty for a name that is none.
[[nodiscard]] QStringList codecsOfWay(const QString& way);

/// The versions of the libraries that decode and play, a line each.
[[nodiscard]] QStringList movieLibraryVersions();

} // namespace kestro
