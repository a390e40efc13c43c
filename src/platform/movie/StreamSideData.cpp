#include "platform/movie/StreamSideData.h"

#include <algorithm>

namespace kestro {

#if LIBAVCODEC_VERSION_INT >= AV_VERSION_INT(60, 31, 102)

std::span<const std::uint8_t> sideDataOf(const AVStream& stream, AVPacketSideDataType kind)
{
    const AVCodecParameters& codec = *stream.codecpar;
    const auto* data = av_packet_side_data_get(codec.coded_side_data, codec.nb_coded_side_data, kind);
    if (!data) return {};
    return {data->data, data->size};
}

int copyParameters(AVStream& to, const AVStream& from)
{
    return avcodec_parameters_copy(to.codecpar, from.codecpar);
}

#else

std::span<const std::uint8_t> sideDataOf(const AVStream& stream, AVPacketSideDataType kind)
{
    std::size_t length = 0;
    const std::uint8_t* data = av_stream_get_side_data(&stream, kind, &length);
    if (!data) return {};
    return {data, length};
}

int copyParameters(AVStream& to, const AVStream& from)
{
    if (const int error = avcodec_parameters_copy(to.codecpar, from.codecpar); error < 0) return error;
    for (int i = 0; i < from.nb_side_data; ++i) {
        const AVPacketSideData& data = from.side_data[i];
        std::uint8_t* place = av_stream_new_side_data(&to, data.type, data.size);
        if (!place) return AVERROR(ENOMEM);
        std::copy_n(data.data, data.size, place);
    }
    return 0;
}

#endif

} // namespace kestro
