#include "platform/display/view/FadedPixels.h"

#include "platform/base/Widest.h"

#include <algorithm>
#include <cmath>

namespace kestro {

namespace {

constexpr unsigned whole = 256; ///< the share that leaves a colour as it is
constexpr int block = 16;       ///< pixels that the compiler may work on at once

template <int Pixels>
inline void fadeSome(const uchar* from, quint32* to, quint16 share)
{
    uchar bytes[Pixels * 4];
    for (int i = 0; i < Pixels * 4; ++i)
        bytes[i] = static_cast<uchar>(static_cast<quint16>(from[i] * share + whole / 2) / whole);
    std::copy_n(bytes, Pixels * 4, reinterpret_cast<uchar*>(to));
    for (int i = 0; i < Pixels; ++i)
        to[i] |= 0xff000000;
}

KESTRO_WIDEST void fadeRow(const uchar* from, quint32* to, int pixels, quint16 share)
{
    for (; pixels >= block; pixels -= block, from += block * 4, to += block)
        fadeSome<block>(from, to, share);
    for (; pixels > 0; --pixels, from += 4, ++to)
        fadeSome<1>(from, to, share);
}

bool takesOpaquePixels(QImage::Format format)
{
    return format == QImage::Format_RGB32 || format == QImage::Format_ARGB32_Premultiplied;
}

} // namespace

bool copyFaded(const QImage& from, const QRect& part, QImage& to, QPoint place, double opacity)
{
    const bool fits = from.rect().contains(part) && to.rect().contains(QRect(place, part.size()));
    if (!fits || from.format() != QImage::Format_RGB32 || !takesOpaquePixels(to.format())) return false;
    const auto share = static_cast<quint16>(std::lround(std::clamp(opacity, 0.0, 1.0) * whole));
    for (int row = 0; row < part.height(); ++row)
        fadeRow(from.constScanLine(part.top() + row) + qsizetype{part.left()} * 4,
                reinterpret_cast<quint32*>(to.scanLine(place.y() + row)) + place.x(), part.width(), share);
    return true;
}

} // namespace kestro
