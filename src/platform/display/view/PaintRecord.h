#pragma once

#include <QRegion>

namespace kestro {

/// Knows which pixels of a backing store hold anything, which hide what is below them, and which were painted
/// since that was last asked. So what is empty or hidden need not be composed. Errs towards "holds something"
/// and "hides nothing". Part of a backing store; pixels from its top left. Main thread.
/// Tested by PainterTest.
class PaintRecord final {
public:
    /// Everything noted is cut to `clip`.
    void setClip(const QRegion& clip) { m_clip = clip; }
    [[nodiscard]] const QRegion& clip() const { return m_clip; }

    /// `rect` was replaced by one colour.
    void noteFill(const QRect& rect, int alpha);
    /// Something was drawn over what `rect` held.
    void noteDrawn(const QRect& rect);
    /// `rect` was replaced by something.
    void noteReplaced(const QRect& rect);
    /// Anything may have happened within the clip.
    void noteAnything();

    [[nodiscard]] const QRegion& drawn() const { return m_drawn; }
    [[nodiscard]] const QRegion& opaque() const { return m_opaque; }
    /// What was painted since the last call.
    [[nodiscard]] QRegion takePainted();

private:
    [[nodiscard]] QRegion clipped(const QRect& rect) const { return m_clip & rect; }
    void addPainted(const QRegion& region);
    void simplify();

    QRegion m_clip;
    QRegion m_drawn;
    QRegion m_opaque;
    QRegion m_painted;
};

} // namespace kestro
