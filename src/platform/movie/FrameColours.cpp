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
