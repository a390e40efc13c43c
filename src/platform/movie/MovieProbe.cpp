#include "platform/movie/MovieProbe.h"

#include "platform/base/FileLook.h"
#include "platform/movie/AvFormat.h"
#include "platform/movie/AvInput.h"

#include <QFileInfo>
#include <QUrl>

#include <algorithm>
#include <chrono>
#include <utility>

namespace kestro {

using std::chrono::milliseconds;

// Good files need a few milliseconds; this bounds hostile ones.
static constexpr milliseconds longestLook{2000};
// A recording broken off or streamed to disk names no duration; so long is looked for its end.
static constexpr milliseconds longestSearchForEnd{250};

static Result<void, MovieFault> checkFile(const QString& path)
{
    using Kind = MovieFault::Kind;
    const QFileInfo file(path);
    if (!file.exists()) return MovieFault{Kind::NoFile};
    if (!file.isFile()) return MovieFault{Kind::NoRegularFile};
    if (!file.isReadable()) return MovieFault{Kind::NotReadable};
    if (file.size() == 0) return MovieFault{Kind::EmptyFile};
    return {};
}

/// The end of the last frame that can be read within the time allowed.
static double searchForEnd(const AvInput& input, AvInterrupt& interrupt, std::stop_token stop)
{
    interrupt.allow(longestSearchForEnd, std::move(stop));
    double end = 0;
    AVPacket* packet = av_packet_alloc();
    while (packet && !interrupt.isDue() && av_read_frame(input.context(), packet) >= 0) {
        const bool counts = packet->stream_index == input.video()->index && packet->pts != AV_NOPTS_VALUE;
        if (counts) end = std::max(end, input.secondsOf(packet->pts + packet->duration));
        av_packet_unref(packet);
    }
    av_packet_free(&packet);
    return end;
}

Result<MovieFacts, MovieFault> probeMovie(const QString& path, std::stop_token stop)
{
    if (const auto checked = checkFile(path); !checked) return checked.failure();

    AvInterrupt interrupt;
    interrupt.allow(longestLook, stop);
    auto input = AvInput::open(QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath()), interrupt);
    if (!input) return input.failure();
    MovieFacts facts = movieFacts(*input.value());
    if (facts.seconds <= 0) facts.seconds = searchForEnd(*input.value(), interrupt, stop);
    return facts;
}

Result<MovieFacts, MovieFault> probeMovieOnAnyDisk(const QString& path)
{
    if (!isFileThere(path)) return MovieFault{MovieFault::Kind::NoFile};
    return probeMovie(path);
}

Result<MovieFacts, MovieFault> probeRemoteMovie(const QUrl& url, milliseconds longest, std::stop_token stop)
{
    AvInterrupt interrupt;
    interrupt.allow(longest, std::move(stop));
    const auto input = AvInput::open(url, interrupt);
    if (input) return movieFacts(*input.value());
    return interrupt.isDue() ? MovieFault{MovieFault::Kind::NoAnswer} : input.failure();
}

} // namespace kestro
