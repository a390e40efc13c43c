#include "platform/display/view/AlignedImage.h"

#include <cstdint>
#include <cstdlib>

namespace kestro {

QImage alignedImage(QSize size, QImage::Format format, int guardRows)
{
    constexpr qint64 mostBytes = 512LL << 20;
    if (size.isEmpty() || size.width() > mostBytes / 4) return {};
    const qint64 stride = alignedStride(size.width());
    const qint64 bytes = stride * (qint64{size.height()} + guardRows);
    if (bytes > mostBytes) return {};
    // Zeroed memory of this size comes from the system unread: rows that nobody writes cost nothing.
    void* memory = std::calloc(1, static_cast<size_t>(bytes + pixelAlignment));
    if (!memory) return {};
    const auto address = reinterpret_cast<std::uintptr_t>(memory);
    const auto aligned = (address + pixelAlignment - 1) / pixelAlignment * pixelAlignment;
    return {
        reinterpret_cast<uchar*>(aligned), size.width(), size.height(), stride, format, std::free, memory};
}

} // namespace kestro
