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

// What may hold a movie. Playlists, picture files, text and what reads other files by name are not among
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

static QString errorText(int code)
{
    if (code == AVERROR(EINVAL)) return QStringLiteral("not a kind of file that holds movies");
    char text[AV_ERROR_MAX_STRING_SIZE] = {};
    av_strerror(code, text, sizeof text);
    return QString::fromUtf8(text);
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

Result<std::unique_ptr<AvInput>> AvInput::open(const QUrl& url, AvInterrupt& interrupt)
{
    prepareLibav();
    auto input = std::unique_ptr<AvInput>(new AvInput);
    const QString reason = input->openStreams(url, interrupt);
    if (!reason.isEmpty()) return Error{reason};
    return input;
}

/// What the container says before anything is decoded.
static QString whyTooLargeByHeader(const AVFormatContext& context)
{
    for (unsigned i = 0; i < context.nb_streams; ++i) {
        const AVStream& stream = *context.streams[i];
        if (stream.disposition & AV_DISPOSITION_ATTACHED_PIC) continue;
        MovieFacts facts;
        facts.codedWidth = stream.codecpar->width;
        facts.codedHeight = stream.codecpar->height;
        const QString reason = whyTooLarge(facts);
        if (!reason.isEmpty()) return reason;
    }
    return {};
}

/// Finding out may take decoding a few pictures of each stream.
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

QString AvInput::openStreams(const QUrl& url, AvInterrupt& interrupt)
{
    m_context = avformat_alloc_context();
    if (!m_context) return QStringLiteral("out of memory");
    m_context->interrupt_callback.callback = [](void* opaque) {
        return static_cast<AvInterrupt*>(opaque)->isDue() ? 1 : 0;
    };
    m_context->interrupt_callback.opaque = &interrupt;

    AVDictionary* options = openingOptions(url.isLocalFile());
    const QByteArray source = (url.isLocalFile() ? "file:" : "") + mediaSource(url);
    const int opened = avformat_open_input(&m_context, source.constData(), nullptr, &options);
    av_dict_free(&options);
    if (opened < 0) return errorText(opened);
    QString refusal = whyTooLargeByHeader(*m_context);
    const int found = refusal.isEmpty() ? findStreamInfo(*m_context) : 0;
    const QString reason = found < 0 ? errorText(found) : chooseVideo();
    if (refusal.isEmpty() && reason.isEmpty()) refusal = whyTooLarge(movieFacts(*this));
    if (refusal.isEmpty()) return reason;
    logLine(QStringLiteral("%1: %2").arg(shownURL(url), refusal));
    return refusal;
}

static bool isMovingPicture(const AVFormatContext& context, const AVStream& stream)
{
    if (stream.codecpar->codec_type != AVMEDIA_TYPE_VIDEO) return false;
    if (stream.disposition & (AV_DISPOSITION_ATTACHED_PIC | AV_DISPOSITION_STILL_IMAGE)) return false;
    if (stream.codecpar->width <= 0 || stream.codecpar->height <= 0) return false;
    // A gif is a movie only when it is animated.
    return qstrcmp(context.iformat->name, "gif") != 0 || stream.nb_frames != 1;
}

QString AvInput::chooseVideo()
{
    for (unsigned i = 0; i < m_context->nb_streams; ++i) {
        AVStream* const stream = m_context->streams[i];
        const bool wanted = !m_video && isMovingPicture(*m_context, *stream);
        if (wanted) m_video = stream;
    }
    if (!m_video) return QStringLiteral("no moving picture in it");
    if (!avcodec_find_decoder(m_video->codecpar->codec_id))
        return QStringLiteral("no decoder for %1")
            .arg(QLatin1String(avcodec_get_name(m_video->codecpar->codec_id)));
    return {};
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
