#include "platform/movie/FrameColours.h"

#include "platform/movie/AvFormat.h"

#include <algorithm>

namespace kestro {

int coloursOf(const AVFrame& frame)
{
    const bool isKnown = frame.colorspace != AVCOL_SPC_UNSPECIFIED && frame.colorspace != AVCOL_SPC_RGB;
    if (isKnown) return frame.colorspace;
    const bool isLarge = frame.width >= 1280 || frame.height > 576;
    return isLarge ? SWS_CS_ITU709 : SWS_CS_ITU601;
}

bool hasFullRange(const AVFrame& frame)
{
    switch (frame.format) {
    case AV_PIX_FMT_YUVJ420P:
    case AV_PIX_FMT_YUVJ422P:
    case AV_PIX_FMT_YUVJ444P:
        return true;
    default:
        return frame.color_range == AVCOL_RANGE_JPEG;
    }
}

namespace {

MovieLight::Curve curveOf(AVColorTransferCharacteristic transfer)
{
    switch (transfer) {
    case AVCOL_TRC_SMPTE2084:
        return MovieLight::Curve::Pq;
    case AVCOL_TRC_ARIB_STD_B67:
        return MovieLight::Curve::Hlg;
    default:
        return MovieLight::Curve::Plain;
    }
}

/// Where it does not say, its matrix does.
MovieLight::Gamut gamutOf(const AVFrame& frame)
{
    const bool isUnknown = frame.color_primaries == AVCOL_PRI_UNSPECIFIED;
    const bool hasMatrixOf2020 =
        frame.colorspace == AVCOL_SPC_BT2020_NCL || frame.colorspace == AVCOL_SPC_BT2020_CL;
    if (frame.color_primaries == AVCOL_PRI_BT2020 || (isUnknown && hasMatrixOf2020))
        return MovieLight::Gamut::Bt2020;
    return frame.color_primaries == AVCOL_PRI_SMPTE432 ? MovieLight::Gamut::P3 : MovieLight::Gamut::Screen;
}

/// In cd/m2; 0 where it does not say. What was measured counts more than the display that it was made on.
double namedPeak(const AVFrame& frame)
{
    if (const auto* const data = av_frame_get_side_data(&frame, AV_FRAME_DATA_CONTENT_LIGHT_LEVEL)) {
        const auto& level = *reinterpret_cast<const AVContentLightMetadata*>(data->data);
        if (level.MaxCLL > 0) return level.MaxCLL;
    }
    const auto* const data = av_frame_get_side_data(&frame, AV_FRAME_DATA_MASTERING_DISPLAY_METADATA);
    if (!data) return 0;
    const auto& display = *reinterpret_cast<const AVMasteringDisplayMetadata*>(data->data);
    return display.has_luminance && display.max_luminance.den != 0 ? av_q2d(display.max_luminance) : 0;
}

} // namespace

MovieLight lightOf(const AVFrame& frame)
{
    return {curveOf(frame.color_trc), gamutOf(frame), peakOf(namedPeak(frame))};
}

namespace {

/// What a scaler is set to.
struct Colours {
    int* source = nullptr;
    int sourceRange = 0;
    int* made = nullptr;
    int madeRange = 0;
    int brightness = 0;
    int contrast = 0;
    int saturation = 0;
};

bool ask(SwsContext* scaler, Colours& set)
{
    return sws_getColorspaceDetails(scaler, &set.source, &set.sourceRange, &set.made, &set.madeRange,
                                    &set.brightness, &set.contrast, &set.saturation) >= 0;
}

} // namespace

/// Setting them anew costs more than asking which are set.
void setColours(SwsContext* scaler, const AVFrame& frame, bool keeps)
{
    Colours set;
    if (!ask(scaler, set)) return;
    const int* const source = sws_getCoefficients(coloursOf(frame));
    const int range = hasFullRange(frame) ? 1 : 0;
    const int* const made = keeps ? source : set.made;
    const int madeRange = keeps ? range : set.madeRange;
    const bool isSet = std::equal(source, source + 4, set.source) && range == set.sourceRange &&
                       std::equal(made, made + 4, set.made) && madeRange == set.madeRange;
    if (isSet) return;
    sws_setColorspaceDetails(scaler, source, range, made, madeRange, set.brightness, set.contrast,
                             set.saturation);
}

} // namespace kestro
