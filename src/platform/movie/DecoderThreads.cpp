#include "platform/movie/DecoderThreads.h"

#include "platform/movie/DecoderMemory.h"
#include "platform/movie/MovieFacts.h"

#include <algorithm>
#include <cmath>

namespace kestro {

static constexpr double pixelsOfOneThread = 1920.0 * 1088 * 30; // a second; coded rows come in sixteens
static constexpr double newerCodecWork = 2;
static constexpr int mostThreads = 16; // what FFmpeg advises at most
static constexpr int threadsOfUnknown = 4;

int decoderThreads(const MovieFacts& facts, int cores)
{
    const double pixels = static_cast<double>(facts.codedWidth) * facts.codedHeight * facts.framesPerSecond;
    const double work = pixels / pixelsOfOneThread * (facts.hasNewerCodec ? newerCodecWork : 1);
    const int most = std::clamp(cores, 1, mostThreads);
    const double wished = std::clamp(std::ceil(work), 1.0, static_cast<double>(most));
    return threadsThatFit(facts, static_cast<int>(wished));
}

int decoderThreadsOfUnknown(int cores)
{
    return std::clamp(cores, 1, threadsOfUnknown);
}

} // namespace kestro
