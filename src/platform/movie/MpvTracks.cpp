#include "platform/movie/MpvTracks.h"

#include <QByteArray>

#include <cstdint>
#include <cstring>
#include <mpv/client.h>

namespace kestro {

int rotationOfMovingPicture(mpv_handle* mpv)
{
    std::int64_t count = 0;
    mpv_get_property(mpv, "track-list/count", MPV_FORMAT_INT64, &count);
    for (int i = 0; i < count; ++i) {
        const QByteArray track = "track-list/" + QByteArray::number(i) + '/';
        int isPicture = 0;
        std::int64_t rotation = 0;
        char* const type = mpv_get_property_string(mpv, (track + "type").constData());
        const bool isVideo = type && std::strcmp(type, "video") == 0;
        mpv_free(type);
        mpv_get_property(mpv, (track + "image").constData(), MPV_FORMAT_FLAG, &isPicture);
        mpv_get_property(mpv, (track + "demux-rotation").constData(), MPV_FORMAT_INT64, &rotation);
        if (isVideo && !isPicture) return static_cast<int>(rotation);
    }
    return -1;
}

} // namespace kestro
