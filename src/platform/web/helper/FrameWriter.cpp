#include "platform/web/helper/FrameWriter.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace kestro {

namespace {

size_t bytesOf(int pixels)
{
    return static_cast<size_t>(pixels) * 4;
}

bool isRowEqual(const QImage& one, const QImage& other, int y, int left, int width)
{
    return std::memcmp(one.constScanLine(y) + bytesOf(left), other.constScanLine(y) + bytesOf(left),
                       bytesOf(width)) == 0;
}

/// How many equal pixels the two rows have at their left end, and at their right.
int equalAtLeft(const QImage& one, const QImage& other, int y, int most)
{
    const auto* a = reinterpret_cast<const QRgb*>(one.constScanLine(y));
    const auto* b = reinterpret_cast<const QRgb*>(other.constScanLine(y));
    return static_cast<int>(std::mismatch(a, a + most, b).first - a);
}

int equalAtRight(const QImage& one, const QImage& other, int y, int most)
{
    const auto* a = reinterpret_cast<const QRgb*>(one.constScanLine(y)) + one.width();
    const auto* b = reinterpret_cast<const QRgb*>(other.constScanLine(y)) + one.width();
    int equal = 0;
    while (equal < most && a[-1 - equal] == b[-1 - equal])
        ++equal;
    return equal;
}

/// The smallest rectangle outside which two pictures of one size are equal.
QRect differenceOf(const QImage& one, const QImage& other)
{
    const int width = one.width();
    int top = 0;
    int bottom = one.height();
    while (top < bottom && isRowEqual(one, other, top, 0, width))
        ++top;
    if (top == bottom) return {};
    while (isRowEqual(one, other, bottom - 1, 0, width))
        --bottom;
    int left = width;
    int right = width;
    for (int y = top; y < bottom && left + right > 0; ++y) {
        left = equalAtLeft(one, other, y, left);
        right = equalAtRight(one, other, y, right);
    }
    return {QPoint(left, top), QPoint(width - right - 1, bottom - 1)};
}

void copy(const QImage& from, QImage& to, const QRect& part)
{
    for (int y = part.top(); y <= part.bottom(); ++y)
        std::memcpy(to.scanLine(y) + bytesOf(part.left()), from.constScanLine(y) + bytesOf(part.left()),
                    bytesOf(part.width()));
}

} // namespace

void FrameWriter::setFrames(std::unique_ptr<SharedFrames> frames)
{
    m_frames = std::move(frames);
    const QRect whole = m_frames ? QRect({0, 0}, m_frames->size()) : QRect();
    m_slots.fill({true, whole});
    m_newest = -1;
}

void FrameWriter::release(int slot)
{
    if (SharedFrames::isSlot(slot)) m_slots[static_cast<size_t>(slot)].isFree = true;
}

int FrameWriter::freeSlot() const
{
    const auto slot = std::ranges::find(m_slots, true, &Slot::isFree);
    return slot == m_slots.end() ? -1 : static_cast<int>(slot - m_slots.begin());
}

bool FrameWriter::hasRoom() const
{
    return m_frames && freeSlot() >= 0;
}

QRect FrameWriter::difference(const QImage& picture)
{
    if (m_newest < 0) return picture.rect();
    return differenceOf(picture, m_frames->writable(m_newest));
}

std::optional<FrameWriter::Written> FrameWriter::write(const QImage& picture)
{
    if (!hasRoom() || picture.size() != m_frames->size()) return {};
    const QRect damage = difference(picture);
    if (damage.isEmpty()) return {};
    for (Slot& each : m_slots)
        each.stale |= damage;
    const int index = freeSlot();
    Slot& slot = m_slots[static_cast<size_t>(index)];
    QImage to = m_frames->writable(index);
    copy(picture, to, slot.stale);
    slot = {false, {}};
    m_newest = index;
    return Written{index, damage};
}

} // namespace kestro
