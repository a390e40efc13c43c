#pragma once

#include <functional>

namespace kestro {

/// Tells that the display server is gone. Qt ends the process then, on the spot and without another word than
/// a warning, so that warning is what is listened for. The call comes on the main thread, from inside Qt: the
/// one who is called leaves the process, or Qt does. One at a time. Main thread.
class DisplayLoss final {
public:
    explicit DisplayLoss(std::function<void()> onLoss);
    ~DisplayLoss();
    DisplayLoss(const DisplayLoss&) = delete;
    DisplayLoss& operator=(const DisplayLoss&) = delete;
};

} // namespace kestro
