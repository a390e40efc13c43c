#pragma once

#include <memory>
#include <string_view>

namespace kestro::themes {

class Frame;

/// One theme movie: a picture whose every motion takes a whole number of turns, so that its end runs into its
/// beginning. Each drawing thread owns one.
class Loop {
public:
    virtual ~Loop() = default;

    /// Draws the whole picture. `turn` runs from 0 up to, without, 1 over the loop.
    virtual void draw(Frame& frame, float turn) = 0;
};

/// The loop of that name; null for a name that is none.
[[nodiscard]] std::unique_ptr<Loop> makeLoop(std::string_view name);

std::unique_ptr<Loop> makeBokeh();
std::unique_ptr<Loop> makeCompass();
std::unique_ptr<Loop> makeConfetti();
std::unique_ptr<Loop> makeMarquee();
std::unique_ptr<Loop> makePopBurst();
std::unique_ptr<Loop> makeReef();
std::unique_ptr<Loop> makeRipples();
std::unique_ptr<Loop> makeSilk();

} // namespace kestro::themes
