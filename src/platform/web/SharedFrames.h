#pragma once

#include "platform/base/Bounds.h"
#include "platform/base/Descriptor.h"

#include <QImage>
#include <QSize>

#include <memory>

namespace kestro {

/// Memory for two pictures of one size that the saver's process and its web helper have in common: while one
/// is shown, the other is written. Made and shown by the saver, written by the helper. The memory can be made
/// neither smaller nor larger, so no end can pull it from under the other. Main thread of either process.
class SharedFrames final {
public:
    static constexpr int slotCount = 2;
    static constexpr int longestSide = Bounds::webPictureSide; ///< pixels

    /// New memory, for this process to read; null when there is none, or the size is out of bounds.
    [[nodiscard]] static std::unique_ptr<SharedFrames> make(QSize size);
    /// The memory of the other process, to write in; null when it is not what make() makes for that size.
    [[nodiscard]] static std::unique_ptr<SharedFrames> adopt(Descriptor memory, QSize size);
    ~SharedFrames();
    SharedFrames(const SharedFrames&) = delete;
    SharedFrames& operator=(const SharedFrames&) = delete;

    [[nodiscard]] QSize size() const { return m_size; }
    [[nodiscard]] static bool isSlot(int slot) { return slot >= 0 && slot < slotCount; }
    /// The picture in that slot, without a copy: 32 bits a pixel, blue first, the fourth byte ignored. Valid
    /// for the life of this object.
    [[nodiscard]] const uchar* pixels(int slot) const { return m_memory + slotBytes(m_size) * slot; }
    /// The same, to draw in; only where the memory was adopted.
    [[nodiscard]] QImage writable(int slot);
    [[nodiscard]] qsizetype bytesPerLine() const { return qsizetype{m_size.width()} * 4; }
    /// Another descriptor of the memory, to hand over.
    [[nodiscard]] Descriptor share() const;

private:
    SharedFrames(Descriptor descriptor, QSize size, uchar* memory);
    [[nodiscard]] static qsizetype slotBytes(QSize size);
    [[nodiscard]] static std::unique_ptr<SharedFrames> map(Descriptor descriptor, QSize size, int access);

    Descriptor m_descriptor;
    QSize m_size;
    uchar* m_memory;
};

} // namespace kestro
