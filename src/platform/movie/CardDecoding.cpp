#include "platform/movie/CardDecoding.h"

#include <array>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/buffer.h>
#include <libavutil/hwcontext.h>
}
#include <mpv/client.h>

namespace kestro {

namespace {

constexpr std::array codecs{AV_CODEC_ID_H264, AV_CODEC_ID_HEVC, AV_CODEC_ID_VP9, AV_CODEC_ID_AV1,
                            AV_CODEC_ID_MPEG2VIDEO};
constexpr std::array ways{AV_HWDEVICE_TYPE_CUDA, AV_HWDEVICE_TYPE_VAAPI, AV_HWDEVICE_TYPE_VDPAU};

bool canBeAsked(const AVCodec& codec, AVHWDeviceType way)
{
    for (int index = 0;; ++index) {
        const AVCodecHWConfig* const config = avcodec_get_hw_config(&codec, index);
        if (!config) return false;
        if (config->device_type == way && (config->methods & AV_CODEC_HW_CONFIG_METHOD_HW_DEVICE_CTX))
            return true;
    }
}

bool hasDecoder(AVCodecID id, AVHWDeviceType way)
{
    void* position = nullptr;
    while (const AVCodec* const codec = av_codec_iterate(&position))
        if (codec->id == id && av_codec_is_decoder(codec) && canBeAsked(*codec, way)) return true;
    return false;
}

bool canBeOpened(AVHWDeviceType way)
{
    AVBufferRef* device = nullptr;
    const bool isOpen = av_hwdevice_ctx_create(&device, way, nullptr, nullptr, 0) >= 0;
    av_buffer_unref(&device);
    return isOpen;
}

} // namespace

QStringList codecsOfWay(const QString& way)
{
    const AVHWDeviceType type = av_hwdevice_find_type_by_name(way.toLatin1().constData());
    QStringList names;
    for (const AVCodecID id : codecs)
        if (type != AV_HWDEVICE_TYPE_NONE && hasDecoder(id, type))
            names.append(QLatin1String(avcodec_get_name(id)));
    return names;
}

QList<CardDecoding> cardDecodings()
{
    QList<CardDecoding> found;
    for (const AVHWDeviceType way : ways) {
        const QString name = QLatin1String(av_hwdevice_get_type_name(way));
        if (canBeOpened(way)) found.append({name, codecsOfWay(name)});
    }
    return found;
}

QStringList movieLibraryVersions()
{
    const unsigned long mpv = mpv_client_api_version();
    return {QStringLiteral("FFmpeg ") + QLatin1String(av_version_info()),
            QStringLiteral("libmpv's interface %1.%2").arg(mpv >> 16).arg(mpv & 0xffff)};
}

} // namespace kestro
