#include "publish/MovieReader.h"

#include "platform/movie/MovieProbe.h"
#include "platform/movie/StillDecoder.h"
#include "publish/PosterChoice.h"

#include <QBuffer>
#include <QImageWriter>

#include <cmath>

namespace kestro {

namespace {

constexpr int jpegQuality = 86;

QByteArray jpeg(const QImage& picture)
{
    QBuffer buffer;
    QImageWriter writer(&buffer, "jpeg");
    writer.setQuality(jpegQuality);
    writer.setOptimizedWrite(true);
    writer.setProgressiveScanWrite(true);
    return writer.write(picture.convertToFormat(QImage::Format_RGB888)) ? buffer.data() : QByteArray();
}

} // namespace

Result<void> StillMovieReader::learn(SourceMovie& movie, const QString& path)
{
    const auto facts = probeMovie(path);
    if (!facts) return Error{plainWords(facts.failure())};
    const Size size = facts.value().naturalSize();
    movie.width = int(std::lround(size.width));
    movie.height = int(std::lround(size.height));
    movie.seconds = facts.value().seconds;
    if (movie.width <= 0 || movie.height <= 0) return Error{QStringLiteral("it has no pictures")};
    return {};
}

QByteArray StillMovieReader::poster(const SourceMovie& movie, const QString& path)
{
    StillDecoder stills(QUrl::fromLocalFile(path));
    stills.setSize(posterSize({movie.width, movie.height}));
    QImage best;
    double bestInterest = -1;
    for (const double time : posterTimes(movie.seconds)) {
        const QImage picture = stills.picture(time).image;
        if (picture.isNull()) continue;
        const double interest = pictureInterest(picture);
        if (interest > bestInterest) best = picture;
        bestInterest = std::max(interest, bestInterest);
        if (isInteresting(interest)) break;
    }
    return best.isNull() ? QByteArray() : jpeg(best);
}

} // namespace kestro
