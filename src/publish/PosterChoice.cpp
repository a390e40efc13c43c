#include "publish/PosterChoice.h"

#include <algorithm>
#include <cmath>

namespace kestro {

namespace {

constexpr int widestPoster = 960;
constexpr int highestPoster = 960;
constexpr int samplesAcross = 64;
constexpr double interestEnough = 36;

} // namespace

std::vector<double> posterTimes(double seconds)
{
    if (!(seconds > 0)) return {0};
    std::vector<double> times;
    for (const double part : {0.25, 0.4, 0.55, 0.1, 0.7, 0.85, 0.0})
        times.push_back(part * seconds);
    return times;
}

double pictureInterest(const QImage& picture)
{
    if (picture.isNull()) return 0;
    double sum = 0;
    double squares = 0;
    for (int row = 0; row < samplesAcross; ++row)
        for (int column = 0; column < samplesAcross; ++column) {
            const int grey = qGray(picture.pixel(column * picture.width() / samplesAcross,
                                                 row * picture.height() / samplesAcross));
            sum += grey;
            squares += double(grey) * grey;
        }
    constexpr double count = samplesAcross * samplesAcross;
    const double mean = sum / count;
    return std::sqrt(std::max(squares / count - mean * mean, 0.0));
}

bool isInteresting(double interest)
{
    return interest >= interestEnough;
}

QSize posterSize(QSize natural)
{
    const QSize bounds(widestPoster, highestPoster);
    const bool isLarger = natural.width() > bounds.width() || natural.height() > bounds.height();
    const QSize size = isLarger ? natural.scaled(bounds, Qt::KeepAspectRatio) : natural;
    return size.expandedTo({1, 1});
}

} // namespace kestro
