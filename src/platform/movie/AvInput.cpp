#include "platform/movie/AvInput.h"

#include "platform/base/Bounds.h"
#include "platform/base/FileURL.h"
#include "platform/base/Log.h"
#include "platform/base/ShownURL.h"
#include "platform/movie/AvFormat.h"
#include "platform/movie/DecoderMemory.h"
#include "platform/movie/MovieFacts.h"

#include <QFile>
#include <QUrl>

#include <cmath>
#include <vector>

namespace kestro {

using std::chrono::steady_clock;

// What may hold a movie. Playlists, frame files, text and what reads other files by name are not among
// them.
static constexpr const char* containers =
    "mov,mp4,m4a,3gp,3g2,mj2,matroska,webm,avi,mpeg,mpegts,mpegvideo,asf,flv,ogg,gif,nut,mxf,rm,dv,wtv,ivf,"
    "h264,hevc,"
    "m4v,obu,yuv4mpegpipe,gxf,nsv,swf,bink,smk,roq,flic,dnxhd,vc1,ty,pva,film_cpk,4xm,idcin,wc3movie";
static constexpr const char* remoteContainers = ",hls,applehttp";

void AvInterrupt::allow(std::chrono::milliseconds span, std::stop_token stop)
{
    m_stop = std::move(stop);
    m_deadline = steady_clock::now() + span;
}

bool AvInterrupt::isDue() const
{
    return m_interrupted || m_stop.stop_requested() || steady_clock::now() > m_deadline.load();
}

QByteArray mediaSource(const QUrl& url)
{
    const auto path = localPath(url);
    return path ? QFile::encodeName(*path) : url.toEncoded(QUrl::RemoveFragment);
}

// What libav's common codes mean to a person who wanted a movie.
static MovieFault::Kind kindOf(int code, bool isLocal)
{
    using Kind = MovieFault::Kind;
    switch (code) {
    case AVERROR(EINVAL):
    case AVERROR_DEMUXER_NOT_FOUND:
        return Kind::NoMovieFormat;
    case AVERROR_INVALIDDATA:
    case AVERROR_EOF:
        return Kind::Damaged;
    case AVERROR(ENOENT):
        return Kind::NoFile;
    case AVERROR(EACCES):
    case AVERROR(EPERM):
        return Kind::NotReadable;
    case AVERROR(EIO): // also the answer to a host that has no address
        return isLocal ? Kind::NotReadable : Kind::NotReached;
    case AVERROR(ECONNREFUSED):
    case AVERROR(ECONNRESET):
    case AVERROR(EHOSTUNREACH):
    case AVERROR(ENETUNREACH):
        return Kind::NotReached;
    case AVERROR(ETIMEDOUT):
    case AVERROR_EXIT:
        return Kind::NoAnswer;
    case AVERROR_HTTP_NOT_FOUND:
        return Kind::NotOnServer;
    case AVERROR_HTTP_BAD_REQUEST:
    case AVERROR_HTTP_UNAUTHORIZED:
    case AVERROR_HTTP_FORBIDDEN:
    case AVERROR_HTTP_OTHER_4XX:
    case AVERROR_HTTP_SERVER_ERROR:
        return Kind::RefusedByServer;
    case AVERROR(ENOMEM):
        return Kind::OutOfMemory;
    default:
        return Kind::Other;
    }
}

static MovieFault faultOf(int code, bool isLocal)
{
    const MovieFault::Kind kind = kindOf(code, isLocal);
    if (kind != MovieFault::Kind::Other) return {kind, {}};
    char text[AV_ERROR_MAX_STRING_SIZE] = {};
    av_strerror(code, text, sizeof text);
    return {kind, QString::fromUtf8(text)};
}

QByteArray movieContainers(bool local)
{
    return QByteArray(containers) + (local ? "" : remoteContainers);
}

QByteArray movieProtocols(bool local)
{
    return local ? "file" : "http,https,tcp,tls,crypto,httpproxy";
}

static AVDictionary* openingOptions(bool local)
{
    AVDictionary* options = nullptr;
    av_dict_set(&options, "protocol_whitelist", movieProtocols(local).constData(), 0);
    av_dict_set(&options, "format_whitelist", movieContainers(local).constData(), 0);
    av_dict_set_int(&options, "probesize", Bounds::probeBytes, 0);
    av_dict_set_int(&options, "analyzeduration", qint64{Bounds::probeSeconds} * AV_TIME_BASE, 0);
    av_dict_set_int(&options, "max_streams", Bounds::probeStreams, 0);
    return options;
}

Result<std::unique_ptr<AvInput>, MovieFault> AvInput::open(const QUrl& url, AvInterrupt& interrupt)
{
    prepareLibav();
    auto input = std::unique_ptr<AvInput>(new AvInput);
    const auto opened = input->openStreams(url, interrupt);
    if (opened) return input;
    if (opened.failure().kind == MovieFault::Kind::TooLarge)
        logLine(QStringLiteral("%1: %2").arg(shownURL(url), plainWords(opened.failure())));
    return opened.failure();
}

/// What the container says before anything is decoded.
static Result<void, MovieFault> checkSizesInHeader(const AVFormatContext& context)
{
    for (unsigned i = 0; i < context.nb_streams; ++i) {
        const AVStream& stream = *context.streams[i];
        if (stream.disposition & AV_DISPOSITION_ATTACHED_PIC) continue;
        MovieFacts facts;
        facts.codedWidth = stream.codecpar->width;
        facts.codedHeight = stream.codecpar->height;
        if (const auto fits = checkSize(facts); !fits) return fits;
    }
    return {};
}

/// Finding out may take decoding a few frames of each stream.
static int findStreamInfo(AVFormatContext& context)
{
    const qint64 mostPixels = qint64{Bounds::movieSide} * Bounds::movieSide;
    const unsigned count = context.nb_streams;
    std::vector<AVDictionary*> options(count, nullptr);
    for (AVDictionary*& ofStream : options)
        av_dict_set_int(&ofStream, "max_pixels", mostPixels, 0);
    const int found = avformat_find_stream_info(&context, options.data());
    for (AVDictionary*& ofStream : options)
        av_dict_free(&ofStream);
    return found;
}

Result<void, MovieFault> AvInput::openStreams(const QUrl& url, AvInterrupt& interrupt)
{
    if (const auto opened = openContainer(url, interrupt); !opened) return opened;
    if (const auto fits = checkSizesInHeader(*m_context); !fits) return fits;
    if (const int found = findStreamInfo(*m_context); found < 0) return faultOf(found, url.isLocalFile());
    if (const auto chosen = chooseVideo(); !chosen) return chosen;
    return checkSize(movieFacts(*this));
}

Result<void, MovieFault> AvInput::openContainer(const QUrl& url, AvInterrupt& interrupt)
{
    m_context = avformat_alloc_context();
    if (!m_context) return MovieFault{MovieFault::Kind::OutOfMemory};
    m_context->interrupt_callback.callback = [](void* opaque) {
        return static_cast<AvInterrupt*>(opaque)->isDue() ? 1 : 0;
    };
    m_context->interrupt_callback.opaque = &interrupt;

    AVDictionary* options = openingOptions(url.isLocalFile());
    const QByteArray source = (url.isLocalFile() ? "file:" : "") + mediaSource(url);
    const int opened = avformat_open_input(&m_context, source.constData(), nullptr, &options);
    av_dict_free(&options);
    if (opened < 0) return faultOf(opened, url.isLocalFile());
    return {};
}

static bool isVideo(const AVFormatContext& context, const AVStream& stream)
{
    if (stream.codecpar->codec_type != AVMEDIA_TYPE_VIDEO) return false;
    if (stream.disposition & (AV_DISPOSITION_ATTACHED_PIC | AV_DISPOSITION_STILL_IMAGE)) return false;
    if (stream.codecpar->width <= 0 || stream.codecpar->height <= 0) return false;
    // A gif is a movie only when it is animated.
    return qstrcmp(context.iformat->name, "gif") != 0 || stream.nb_frames != 1;
}

Result<void, MovieFault> AvInput::chooseVideo()
{
    for (unsigned i = 0; i < m_context->nb_streams; ++i) {
        AVStream* const stream = m_context->streams[i];
        const bool wanted = !m_video && isVideo(*m_context, *stream);
        if (wanted) m_video = stream;
    }
    if (!m_video) return MovieFault{MovieFault::Kind::NoVideo};
    const AVCodecID codec = m_video->codecpar->codec_id;
    if (avcodec_find_decoder(codec)) return {};
    return MovieFault{MovieFault::Kind::NoDecoder, QString::fromLatin1(avcodec_get_name(codec))};
}

static double startSeconds(const AVFormatContext& context)
{
    return context.start_time == AV_NOPTS_VALUE ? 0 : static_cast<double>(context.start_time) / AV_TIME_BASE;
}

double AvInput::secondsOf(std::int64_t pts) const
{
    return static_cast<double>(pts) * av_q2d(m_video->time_base) - startSeconds(*m_context);
}

std::int64_t AvInput::ptsAt(double seconds) const
{
    return std::llround((seconds + startSeconds(*m_context)) / av_q2d(m_video->time_base));
}

AvInput::~AvInput()
{
    avformat_close_input(&m_context);
}

} // namespace kestro
