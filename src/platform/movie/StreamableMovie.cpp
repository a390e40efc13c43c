#include "platform/movie/StreamableMovie.h"

#include "platform/movie/AvFormat.h"
#include "platform/movie/AvInput.h"
#include "platform/movie/StreamSideData.h"

#include <QFile>
#include <QUrl>
#include <QtEndian>

#include <chrono>
#include <memory>
#include <vector>

namespace kestro {

namespace {

constexpr std::chrono::hours longest{24}; // to read a movie: as long as the disk takes

// A box of a QuickTime file: 4 bytes of size, 4 of name, and 8 of a larger size where the size is 1.
constexpr qint64 boxHead = 8;
constexpr qint64 largeBoxHead = 16;

struct FreeOutput {
    void operator()(AVFormatContext* context) const
    {
        avio_closep(&context->pb);
        avformat_free_context(context);
    }
};
using Output = std::unique_ptr<AVFormatContext, FreeOutput>;

struct FreePacket {
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
};

/// The name of the box at `at`, which becomes the place of the next one; empty at the end.
QByteArray nextBox(QFile& file, qint64& at)
{
    if (!file.seek(at)) return {};
    const QByteArray head = file.read(largeBoxHead);
    if (head.size() < boxHead) return {};
    qint64 size = qFromBigEndian<quint32>(head.constData());
    if (size == 1 && head.size() == largeBoxHead) size = qFromBigEndian<qint64>(head.constData() + boxHead);
    if (size < boxHead) return {}; // reaches to the end of the file, or is none
    at += size;
    return head.mid(4, 4);
}

Error failure(int code)
{
    char text[AV_ERROR_MAX_STRING_SIZE] = {};
    return Error{QString::fromUtf8(av_make_error_string(text, sizeof text, code))};
}

int copyStream(AVFormatContext& output, const AVStream& from)
{
    AVStream* const to = avformat_new_stream(&output, nullptr);
    if (!to) return AVERROR(ENOMEM);
    if (const int error = copyParameters(*to, from); error < 0) return error;
    to->codecpar->codec_tag = 0;
    to->time_base = from.time_base;
    to->sample_aspect_ratio = from.sample_aspect_ratio;
    to->avg_frame_rate = from.avg_frame_rate;
    av_dict_copy(&to->metadata, from.metadata, 0);
    return 0;
}

bool isKept(const AVStream& stream)
{
    return stream.codecpar->codec_type == AVMEDIA_TYPE_VIDEO ||
           stream.codecpar->codec_type == AVMEDIA_TYPE_AUDIO;
}

/// The streams of the input that a movie is made of; `places` tells where each of them goes, -1 for nowhere.
int copyStreams(AVFormatContext& output, const AVFormatContext& input, std::vector<int>& places)
{
    for (unsigned i = 0; i < input.nb_streams; ++i) {
        const bool kept = isKept(*input.streams[i]);
        places.push_back(kept ? static_cast<int>(output.nb_streams) : -1);
        if (!kept) continue;
        if (const int error = copyStream(output, *input.streams[i]); error < 0) return error;
    }
    return 0;
}

int writeHead(AVFormatContext& output, const QByteArray& path)
{
    if (const int error = avio_open(&output.pb, path.constData(), AVIO_FLAG_WRITE); error < 0) return error;
    AVDictionary* options = nullptr;
    av_dict_set(&options, "movflags", "faststart", 0);
    const int error = avformat_write_header(&output, &options);
    av_dict_free(&options);
    return error;
}

int copyPackets(AVFormatContext& output, AVFormatContext& input, const std::vector<int>& places)
{
    const std::unique_ptr<AVPacket, FreePacket> packet(av_packet_alloc());
    if (!packet) return AVERROR(ENOMEM);
    int read = 0;
    while ((read = av_read_frame(&input, packet.get())) >= 0) {
        const auto from = static_cast<std::size_t>(packet->stream_index);
        if (from >= places.size() || places[from] < 0) {
            av_packet_unref(packet.get());
            continue;
        }
        packet->stream_index = places[from];
        av_packet_rescale_ts(packet.get(), input.streams[from]->time_base,
                             output.streams[packet->stream_index]->time_base);
        packet->pos = -1;
        if (const int error = av_interleaved_write_frame(&output, packet.get()); error < 0) return error;
    }
    return read == AVERROR_EOF ? av_write_trailer(&output) : read;
}

int copyMovie(AVFormatContext& output, AVFormatContext& input, const QByteArray& path)
{
    std::vector<int> places;
    if (const int error = copyStreams(output, input, places); error < 0) return error;
    av_dict_copy(&output.metadata, input.metadata, 0);
    if (const int error = writeHead(output, path); error < 0) return error;
    return copyPackets(output, input, places);
}

} // namespace

bool isStreamable(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return true;
    qint64 at = 0;
    bool hasPictures = false;
    for (QByteArray box = nextBox(file, at); !box.isEmpty(); box = nextBox(file, at)) {
        if (box == "moov") return !hasPictures;
        hasPictures = hasPictures || box == "mdat";
    }
    return true;
}

Result<void> writeStreamable(const QString& source, const QString& target)
{
    AvInterrupt interrupt;
    interrupt.allow(longest);
    const auto input = AvInput::open(QUrl::fromLocalFile(source), interrupt);
    if (!input) return Error{plainWords(input.failure())};
    const char* const kind = source.endsWith(QStringLiteral(".mov"), Qt::CaseInsensitive) ? "mov" : "mp4";
    AVFormatContext* made = nullptr;
    const QByteArray path = QFile::encodeName(target);
    if (const int error = avformat_alloc_output_context2(&made, nullptr, kind, path.constData()); error < 0)
        return failure(error);
    const Output output(made);
    const int error = copyMovie(*output, *input.value()->context(), path);
    if (error < 0) return failure(error);
    return {};
}

} // namespace kestro
