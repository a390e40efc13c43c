#pragma once

#include "platform/display/surface/Surface.h"
#include "platform/display/view/Geometry.h"

#include <optional>

namespace kestro {

/// Tells whether what a person does is meant to end the saver. A key, a click and a close request always are;
/// the pointer only once it is further than `slack` points from where it was first seen, because windows that
/// come up under it and a nudged desk report motion too. Main thread.
class WakeWatch final {
public:
    static constexpr float slack = 10;

    /// `position` is where the event happened, in global coordinates.
    [[nodiscard]] bool endsSaver(InputEvent::Kind kind, Point position);
    /// The desk has changed below the pointer: the next motion is the first again.
    void forgetPointer() { m_firstSeen.reset(); }

private:
    std::optional<Point> m_firstSeen;
};

} // namespace kestro
