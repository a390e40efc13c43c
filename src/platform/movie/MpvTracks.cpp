#include "platform/movie/MpvTracks.h"

#include "platform/movie/AvFormat.h"
#include "platform/movie/DecoderMemory.h"

#include <QByteArray>

#include <algorithm>
#include <cstdint>
#include <mpv/client.h>

namespace kestro {

namespace {

/// One entry of mpv's list.
class Track final {
public:
    Track(mpv_handle* mpv, std::int64_t number)
        : m_mpv(mpv)
        , m_name("track-list/" + QByteArray::number(static_cast<qint64>(number)) + '/')
    {
    }

    [[nodiscard]] bool isVideo() const { return text("type") == "video" && !isSet("image"); }

    [[nodiscard]] MovieFacts facts() const
    {
        MovieFacts facts;
        facts.codedWidth = sideOf("demux-w");
        facts.codedHeight = sideOf("demux-h");
        facts.rotation = static_cast<int>(number("demux-rotation"));
        const AVCodecDescriptor* const codec = avcodec_descriptor_get_by_name(text("codec").constData());
        facts.keptFrames =
            keptFrames(codec ? codec->id : AV_CODEC_ID_NONE, qint64{facts.codedWidth} * facts.codedHeight);
        return facts;
    }

private:
    [[nodiscard]] QByteArray text(const char* property) const
    {
        char* const found = mpv_get_property_string(m_mpv, (m_name + property).constData());
        QByteArray text(found);
        mpv_free(found);
        return text;
    }

    [[nodiscard]] bool isSet(const char* property) const
    {
        int flag = 0;
        mpv_get_property(m_mpv, (m_name + property).constData(), MPV_FORMAT_FLAG, &flag);
        return flag != 0;
    }

    [[nodiscard]] std::int64_t number(const char* property) const
    {
        std::int64_t found = 0;
        mpv_get_property(m_mpv, (m_name + property).constData(), MPV_FORMAT_INT64, &found);
        return found;
    }

    [[nodiscard]] int sideOf(const char* property) const
    {
        return static_cast<int>(std::clamp<std::int64_t>(number(property), 0, INT_MAX));
    }

    mpv_handle* m_mpv;
    QByteArray m_name;
};

} // namespace

std::optional<MovieFacts> factsOfVideo(mpv_handle* mpv)
{
    std::int64_t count = 0;
    mpv_get_property(mpv, "track-list/count", MPV_FORMAT_INT64, &count);
    std::optional<MovieFacts> first;
    for (std::int64_t i = 0; i < count; ++i) {
        const Track track(mpv, i);
        if (!track.isVideo()) continue;
        const MovieFacts facts = track.facts();
        if (!first) first = facts;
        if (decoderBytes(facts, 1) <= decoderBytes(*first, 1)) continue;
        first->codedWidth = facts.codedWidth;
        first->codedHeight = facts.codedHeight;
        first->keptFrames = facts.keptFrames;
    }
    return first;
}

} // namespace kestro
