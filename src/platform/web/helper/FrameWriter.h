#pragma once

#include "platform/web/SharedFrames.h"

#include <QImage>
#include <QRegion>

#include <array>
#include <memory>
#include <optional>

namespace kestro {

/// Puts the pictures of one page into the memory that is shared with the saver, and of each only what differs
/// from what the slot holds. Owned by the page. Main thread; pixels from the top left.
class FrameWriter final {
public:
    /// What was written: the slot, and what differs from the picture before.
    struct Written {
        int slot = 0;
        QRect damage;
    };

    /// Writes to that memory from now on; its first picture is a whole one.
    void setFrames(std::unique_ptr<SharedFrames> frames);
    /// The saver no longer shows that slot.
    void release(int slot);
    /// Whether write() would find a slot that the saver does not show.
    [[nodiscard]] bool hasRoom() const;
    /// Writes the picture, which must have the size of the memory; none where nothing of it is new.
    [[nodiscard]] std::optional<Written> write(const QImage& picture);

private:
    struct Slot {
        bool isFree = true;
        QRect stale; ///< what has changed since it was written
    };

    [[nodiscard]] QRect difference(const QImage& picture);
    [[nodiscard]] int freeSlot() const;

    std::unique_ptr<SharedFrames> m_frames;
    std::array<Slot, SharedFrames::slotCount> m_slots;
    int m_newest = -1; ///< the slot of the picture before; -1 at the start
};

} // namespace kestro
