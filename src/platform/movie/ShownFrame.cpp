#include "platform/movie/ShownFrame.h"

#include "platform/base/Widest.h"
#include "platform/display/view/AlignedImage.h"
#include "platform/display/view/Layer.h"
#include "platform/movie/MpvRenderer.h"
#include "platform/movie/ToneMap.h"

#include <mpv/render.h>
#include <utility>

namespace kestro {

namespace {

/// The time asked for was read a moment ago: the movie may have gone on to its next frame since.
constexpr double latest = 0.05;
/// What rounding a time to whole units may add to it.
constexpr double rounding = 0.002;

} // namespace

ShownFrame::ShownFrame() = default;
ShownFrame::~ShownFrame() = default;

void ShownFrame::setLight(const MovieLight& light)
{
    auto toneMap = light.isPlain() ? nullptr : std::make_unique<const ToneMap>(light);
    const std::lock_guard lock(m_mutex);
    m_toneMap = std::move(toneMap);
}

void ShownFrame::setRenderer(mpv_render_context* renderer)
{
    const std::lock_guard lock(m_mutex);
    m_renderer = renderer;
    m_hasBegun = false;
}

void ShownFrame::takeBack(mpv_render_context* renderer)
{
    const std::lock_guard lock(m_mutex);
    if (m_renderer != renderer) return;
    m_renderer = nullptr;
    m_hasBegun = false;
}

void ShownFrame::began(double seconds, double lasts)
{
    const std::lock_guard lock(m_mutex);
    m_hasBegun = true;
    m_seconds = seconds;
    m_lasts = lasts;
}

void ShownFrame::left()
{
    const std::lock_guard lock(m_mutex);
    m_hasBegun = false;
}

bool ShownFrame::isOn(double seconds) const
{
    return m_renderer && m_hasBegun && m_seconds - latest <= seconds &&
           seconds <= m_seconds + m_lasts + rounding;
}

bool ShownFrame::draw(const PixelTarget& target)
{
    const std::lock_guard lock(m_mutex);
    return m_renderer && drawLocked(target);
}

bool ShownFrame::takeNew()
{
    const std::lock_guard lock(m_mutex);
    const bool wasTaken = std::exchange(m_wasTaken, false);
    return m_renderer && ((mpv_render_context_update(m_renderer) & MPV_RENDER_UPDATE_FRAME) || wasTaken);
}

void ShownFrame::skip()
{
    const std::lock_guard lock(m_mutex);
    if (m_renderer) skipFrameOf(m_renderer);
}

static std::uint32_t* rowOf(const PixelTarget& target, int row)
{
    return reinterpret_cast<std::uint32_t*>(target.pixels + static_cast<std::ptrdiff_t>(row) * target.stride);
}

/// libswscale fills the fourth bytes with 255, zimg with 0, which some windows take for transparent.
KESTRO_WIDEST static void fillRow(std::uint32_t* pixels, int count)
{
    for (int i = 0; i < count; ++i)
        pixels[i] |= 0xff000000U;
}

static void makeOpaque(const PixelTarget& target)
{
    constexpr int fourth = 3;
    if (target.pixels[fourth] == 255) return;
    for (int row = 0; row < target.height; ++row)
        fillRow(rowOf(target, row), target.width);
}

static void mapLight(const ToneMap& toneMap, const PixelTarget& target)
{
    for (int row = 0; row < target.height; ++row)
        toneMap.mapTenBits(rowOf(target, row), target.width);
}

/// Ten bits of a colour take the room of a pixel as well; eight of that light would show as steps.
bool ShownFrame::drawLocked(const PixelTarget& target)
{
    if (!renderLocked(target, m_toneMap ? "rgb30" : "bgr0")) return false;
    if (m_toneMap)
        mapLight(*m_toneMap, target);
    else
        makeOpaque(target);
    return true;
}

bool ShownFrame::renderLocked(const PixelTarget& target, const char* format)
{
    int size[2] = {target.width, target.height};
    auto stride = static_cast<std::size_t>(target.stride);
    int off = 0;
    mpv_render_param params[] = {
        {MPV_RENDER_PARAM_SW_SIZE, size},
        {MPV_RENDER_PARAM_SW_FORMAT, const_cast<char*>(format)},
        {MPV_RENDER_PARAM_SW_STRIDE, &stride},
        {MPV_RENDER_PARAM_SW_POINTER, target.pixels},
        {MPV_RENDER_PARAM_BLOCK_FOR_TARGET_TIME, &off},
        {MPV_RENDER_PARAM_INVALID, nullptr},
    };
    return mpv_render_context_render(m_renderer, params) >= 0;
}

Picture ShownFrame::picture(double seconds, QSize size)
{
    if (size.isEmpty()) return {};
    const int evenWidth = (size.width() + 1) / 2 * 2; // the last column of an odd one falls between the rows
    QImage image = alignedImage(size, QImage::Format_RGB32);
    const std::lock_guard lock(m_mutex);
    if (image.isNull() || !isOn(seconds)) return {};
    m_wasTaken = m_wasTaken || (mpv_render_context_update(m_renderer) & MPV_RENDER_UPDATE_FRAME);
    const PixelTarget target{image.bits(), evenWidth, size.height(), static_cast<int>(image.bytesPerLine())};
    if (!drawLocked(target)) return {};
    return {image, {static_cast<float>(size.width()), static_cast<float>(size.height())}};
}

} // namespace kestro
