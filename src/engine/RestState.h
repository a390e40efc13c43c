#pragma once

#include "engine/SignImage.h"
#include "platform/saver/SaverControl.h"

namespace kestro {

/// What a saver remembers while it rests. A plain value. Tested by MySaverRestTest.
struct RestState {
    Rest how = Rest::None;
    bool goesOn = false;  ///< the movie, when the rest is over
    bool isLetGo = false; ///< nothing is at hand
    SignImage still;      ///< what shows instead of a movie where power is scarce
};

} // namespace kestro
