#pragma once

#include <QString>

#include <vector>

namespace kestro {

/// A movie file as it was found, and what is shown on the site about it. A value.
struct SourceMovie {
    QString path; ///< below the folder of movies
    qint64 bytes = 0;
    qint64 modified = 0; ///< milliseconds since 1970
    int width = 0;       ///< natural size, whole points
    int height = 0;
    double seconds = 0; ///< 0 when unknown

    /// Tells this state of the file from an earlier or later one.
    [[nodiscard]] QString identity() const
    {
        return QStringLiteral("%1 %2 %3").arg(bytes).arg(modified).arg(path);
    }
};

/// One movie of a title, a width of it, and its names in the title's folder on the site.
struct PublishedMovie {
    SourceMovie source;
    QString fileName;     ///< ends in ".mov", whatever the movie is
    QString originalName; ///< the same with its own extension, for browsers; empty for one that is "mov"
    QString mimeType;     ///< what browsers know it as; empty for what few of them play
};

/// One title of the site: a folder, a page. A value.
struct PublishedTitle {
    QString name;
    QString shelf;                      ///< the folders that it was found in, for people; may be empty
    QString slug;                       ///< its folder on the site: lower-case letters, digits and "-"
    std::vector<PublishedMovie> movies; ///< at least one, the narrowest first, each width once
    bool hasPoster = true;              ///< a picture of its own in its folder
};

/// A movie that is not on the site, and why.
struct LeftOut {
    QString path; ///< below the folder of movies
    QString reason;
};

} // namespace kestro
