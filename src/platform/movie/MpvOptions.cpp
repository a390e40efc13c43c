#include "platform/movie/MpvOptions.h"

#include "platform/base/Bounds.h"
#include "platform/display/gl/OpenGL.h"
#include "platform/movie/AvInput.h"
#include "platform/movie/MpvPlayer.h"

#include <algorithm>
#include <cmath>

namespace kestro {

/// mpv's quoting for a value that holds commas.
static QByteArray quoted(const QByteArray& value)
{
    return '%' + QByteArray::number(value.size()) + '%' + value;
}

/// Empty for none.
static QByteArray rotationFilter(int rotation)
{
    switch (rotation) {
    case 90:
        return "lavfi=[transpose=clock]";
    case 180:
        return "lavfi=[hflip,vflip]";
    case 270:
        return "lavfi=[transpose=cclock]";
    default:
        return {};
    }
}

QByteArray videoFilters(int rotation, bool inSoftware)
{
    const QByteArray rotated = rotationFilter(rotation);
    if (!inSoftware) return rotated;
    static const QByteArray plain = "format=gamma=bt.1886:primaries=bt.709";
    return rotated.isEmpty() ? plain : rotated + ',' + plain;
}

QByteArray decoderBound(qint64 pixels)
{
    return "max_pixels=" + QByteArray::number(pixels);
}

QByteArray mpvVolume(double volume)
{
    // mpv's scale is the cube root of the loudness.
    return QByteArray::number(100 * std::cbrt(std::clamp(volume, 0.0, 1.0)), 'f', 3);
}

MpvHandle::Options plainOptions()
{
    return {
        {"vo", "libmpv"},
        {"config", "no"},
        {"load-scripts", "no"},
        {"ytdl", "no"},
        {"osc", "no"},
        {"osd-level", "0"},
        {"terminal", "no"},
        {"input-default-bindings", "no"},
        {"input-vo-keyboard", "no"},
        {"input-media-keys", "no"},
        {"idle", "yes"},
        {"autoload-files", "no"},
        {"sid", "no"},
        {"audio-display", "no"},
        {"hr-seek", "yes"},
        {"keep-open", "yes"},
        {"keep-open-pause", "no"},
        {"pause", "yes"},
    };
}

/// The frame upright, stretched over the target. libswscale is cheapest where nothing is scaled; for scaling
/// the player lets zimg take its place, which does it better for less.
static MpvHandle::Options pictureOptions()
{
    return {
        {"video-rotate", "no"}, // turning by mpv itself aborts in software
        {"keepaspect", "no"},         {"sws-allow-zimg", "no"}, {"sws-fast", "yes"},
        {"sws-scaler", "bicubic"},    {"zimg-threads", "1"},    {"zimg-dither", "no"},
        {"video-timing-offset", "0"}, // frames come when they are due: drawing them does not wait
    };
}

/// The card scales by itself. The other scalers of mpv's look weights up in a table whose rows they may not
/// fill, and what is left of a row is never written: where a NaN lies there, the whole picture is black. How
/// many weights there are depends on the sizes of movie and screen, so that no other scaler is safe.
static MpvHandle::Options cardScalers()
{
    return {
        {"scale", "bilinear"},         {"dscale", "bilinear"},       {"cscale", "bilinear"},
        {"correct-downscaling", "no"}, {"linear-downscaling", "no"}, {"sigmoid-upscaling", "no"},
    };
}

static MpvHandle::Options sourceOptions(bool local, const MpvMovieOptions& options)
{
    const QByteArray protocols = "protocol_whitelist=" + quoted(movieProtocols(local));
    const QByteArray formats = "format_whitelist=" + quoted(movieContainers(local));
    const QByteArray streams = "max_streams=" + QByteArray::number(Bounds::probeStreams);
    return {
        {"demuxer", "lavf"},
        {"load-unsafe-playlists", "no"},
        {"access-references", local ? "no" : "yes"},
        {"demuxer-lavf-o", protocols + ',' + formats + ',' + streams},
        {"demuxer-lavf-probesize", QByteArray::number(Bounds::probeBytes)},
        {"demuxer-lavf-analyzeduration", QByteArray::number(Bounds::probeSeconds)},
        {"stream-lavf-o", protocols},
        {"network-timeout", QByteArray::number(options.networkTimeout)},
        {"demuxer-max-bytes", QByteArray::number(options.cacheBytes)},
        {"demuxer-max-back-bytes", QByteArray::number(options.cacheBytes / 2)},
        {"ao", options.audioOutputs},
        {"audio-fallback-to-null", "yes"},
        {"audio-client-name", "kestro"},
    };
}

/// A graphics card may decode what it is to show, where no filter has to turn it in memory. "auto-safe" tries
/// the ways that leave frames on the card, then those that copy them, then the processor.
static MpvHandle::Options decoderOptions(const MpvPlayerSetup& setup)
{
    const bool mayDecode = setup.openGL && setup.openGL->isHardware() && setup.rotation == 0;
    if (mayDecode) return {{"hwdec", "auto-safe"}};
    return {{"hwdec", "no"}, {"gpu-hwdec-interop", "no"}};
}

MpvHandle::Options mpvOptions(const MpvPlayerSetup& setup)
{
    MpvHandle::Options options = plainOptions();
    for (auto&& group : {pictureOptions(), cardScalers(), decoderOptions(setup),
                         sourceOptions(setup.url.isLocalFile(), setup.options)})
        options.insert(options.end(), group.begin(), group.end());
    options.emplace_back("vd-lavc-threads", QByteArray::number(setup.decoderThreads));
    options.emplace_back("vd-lavc-o", decoderBound(setup.mostFramePixels));
    options.emplace_back("aid", setup.muted ? "no" : "auto");
    options.emplace_back("volume", mpvVolume(setup.volume));
    return options;
}

} // namespace kestro
