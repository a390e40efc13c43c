#pragma once

#include "platform/display/view/Picture.h"

#include <QObject>

#include <functional>
#include <list>
#include <mutex>
#include <vector>

namespace kestro {

class Painter;

/// The stills that a moving movie window leaves behind on the saver's surface: at most five, newest first,
/// each a little fainter at every tick that it is drawn in. Owned by the engine. Main thread; stills come
/// from the capture thread.
class AfterImageTrail final {
public:
    /// `changed` is called on the main thread with the place of a still that came to the trail.
    explicit AfterImageTrail(std::function<void(const Rect&)> changed);

    /// Lays a still at `pos`, its lower left corner in the saver view; a null one only takes the place of the
    /// oldest. Any thread.
    void queueImage(const Picture& image, Point pos);
    /// The same, here and now: `changed` is not called. Answers whether there was a still.
    bool queueImageNoThread(const Picture& image, Point pos);

    /// Each still that was drawn since the last time loses a fiftieth of its opacity.
    void age();
    /// Draws every still where it lies in `rect`, oldest first; without a background saver each on black of
    /// its size, and only outside `hidden`, a rectangle of the saver view that something else covers.
    void draw(Painter& painter, const Rect& rect, bool overBackground, const Rect& hidden = {});

    [[nodiscard]] int count() const;
    /// The parts of the saver view that the next drawing changes: the stills of then and now, and what was
    /// hidden.
    [[nodiscard]] std::vector<Rect> changing() const;
    /// The part of `rect` that no still covers, nor `hidden`, in pieces.
    [[nodiscard]] std::vector<Rect> uncovered(const Rect& rect, const Rect& hidden = {}) const;
    /// Opacity of the next drawing of each still, newest first.
    [[nodiscard]] std::vector<float> shades() const;

private:
    struct Record {
        Picture image;
        Point pos; ///< lower left corner, in the saver view
        float shade = 1.0F;
        bool isDrawn = false; ///< since it last aged

        [[nodiscard]] Rect place() const { return {pos, image.size}; }
    };

    [[nodiscard]] bool add(const Picture& image, Point pos);
    void noteDrawn(const Rect& rect, const Rect& hidden);
    void drawOnBlack(Painter& painter, const Rect& hidden) const;
    void drawFaintly(Painter& painter) const;

    std::function<void(const Rect&)> m_changed;
    QObject m_mainThread; ///< receives what the capture thread has to say
    mutable std::mutex m_dictLock;
    std::list<Record> m_imgList; ///< newest first
    std::vector<Rect> m_stale;   ///< drawn or hidden at the last drawing of their places
};

} // namespace kestro
