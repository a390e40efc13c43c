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
// A recording cut off or streamed to disk names no duration; so long is looked for its end.
static constexpr milliseconds longestSearchForEnd{250};

static QString faultOfFile(const QString& path)
{
    const QFileInfo file(path);
    if (!file.exists()) return QStringLiteral("no such file");
    if (!file.isFile()) return QStringLiteral("not a file");
    if (!file.isReadable()) return QStringLiteral("not readable");
    if (file.size() == 0) return QStringLiteral("empty file");
    return {};
}

/// The end of the last picture that can be read within the time allowed.
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

Result<MovieFacts> probeMovie(const QString& path, std::stop_token stop)
{
    const QString fault = faultOfFile(path);
    if (!fault.isEmpty()) return Error{fault};

    AvInterrupt interrupt;
    interrupt.allow(longestLook, stop);
    auto input = AvInput::open(QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath()), interrupt);
    if (!input) return Error{input.error()};
    MovieFacts facts = movieFacts(*input.value());
    if (facts.seconds <= 0) facts.seconds = searchForEnd(*input.value(), interrupt, stop);
    return facts;
}

Result<MovieFacts> probeMovieOnAnyDisk(const QString& path)
{
    if (!isFileThere(path)) return Error{QStringLiteral("no such file")};
    return probeMovie(path);
}

Result<MovieFacts> probeRemoteMovie(const QUrl& url, milliseconds longest, std::stop_token stop)
{
    AvInterrupt interrupt;
    interrupt.allow(longest, std::move(stop));
    const auto input = AvInput::open(url, interrupt);
    if (!input) return Error{interrupt.isDue() ? QStringLiteral("no answer in time") : input.error()};
    return movieFacts(*input.value());
}

} // namespace kestro
