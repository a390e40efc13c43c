#pragma once

#include "platform/display/Picture.h"

#include <QObject>

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <stop_token>
#include <thread>
#include <vector>

namespace kestro {

class Painter;
class StillMovie;

/// The stills that a moving movie window leaves behind on the saver's surface: at most five, newest first,
/// each a little fainter at every drawing. Stills are taken on a thread of their own, one at a time. Owned by
/// the engine. Main thread, except the capture.
class AfterImageTrail final {
public:
    /// A still to take: of `copy` (null: none can be had), at movie time `time`, to lie at `place` in the
    /// saver view.
    struct Capture {
        std::shared_ptr<StillMovie> copy;
        std::int32_t time = 0;
        Point place;
    };

    /// `changed` is called on the main thread when a still came to the trail.
    explicit AfterImageTrail(std::function<void()> changed);
    /// Gives up a capture under way.
    ~AfterImageTrail();

    /// Takes the still on the capture thread, once the one before is taken.
    void queueImageThread(const Capture& capture);
    /// Takes the still here and now; answers whether one came to the trail. `changed` is not called.
    bool queueImageNoThread(const Capture& capture);
    [[nodiscard]] bool isCapturing() const { return m_onThread; }
    /// Returns once no still is being taken; one that takes long (a server that does not answer) is given up.
    void waitForCapture();
    /// Gives up a still that is being taken.
    void cancelCapture();

    /// Draws every still where it lies in `rect`, oldest first, and ages it; without a background saver each
    /// on black of its size, and only outside `hidden`, a rectangle of the saver view that something else
    /// covers.
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

        [[nodiscard]] Rect place() const { return {pos, image.size}; }
    };

    void queueImage(const Capture& capture, std::stop_token stop);
    void dropOldest();
    void noteDrawn(const Rect& rect, const Rect& hidden);
    void drawOnBlack(Painter& painter, const Rect& hidden) const;
    void drawFaintly(Painter& painter) const;

    std::function<void()> m_changed;
    QObject m_mainThread; ///< receives what the capture thread has to say
    mutable std::mutex m_dictLock;
    std::list<Record> m_imgList; ///< newest first
    std::vector<Rect> m_stale;   ///< drawn or hidden at the last drawing of their places
    std::atomic<bool> m_onThread = false;
    std::mutex m_doneMutex;
    std::condition_variable m_done; ///< m_onThread fell
    std::jthread m_thread;
};

/// A still of `copy` at `time`, as it comes; a null picture, with a log line, when there is none or when told
/// to stop. Any thread.
[[nodiscard]] Picture movieImage(StillMovie* copy, std::int32_t time, std::stop_token stop = {});

} // namespace kestro
