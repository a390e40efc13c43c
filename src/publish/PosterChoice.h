#pragma once

#include <QImage>
#include <QSize>

#include <vector>

namespace kestro {

// Which picture of a movie stands for it. Any thread.

/// The times, in seconds, to look at, the likeliest first. The beginning alone where the duration is unknown.
[[nodiscard]] std::vector<double> posterTimes(double seconds);

/// How much there is to see in a picture: the standard deviation of its brightness, 0 to 128. Next to nothing
/// for a black, white or faded one.
[[nodiscard]] double pictureInterest(const QImage& picture);

/// Whether a picture of that interest is taken without looking at others.
[[nodiscard]] bool isInteresting(double interest);

/// The pixels of the poster of a movie of `natural` size: as wide, within bounds, and of its shape.
[[nodiscard]] QSize posterSize(QSize natural);

} // namespace kestro
