#include "Loop.h"

#include <utility>

namespace kestro::themes {

std::unique_ptr<Loop> makeLoop(std::string_view name)
{
    using Maker = std::unique_ptr<Loop> (*)();
    static constexpr std::pair<std::string_view, Maker> makers[] = {
        {"bokeh", makeBokeh},     {"compass", makeCompass},   {"confetti", makeConfetti},
        {"marquee", makeMarquee}, {"popburst", makePopBurst}, {"reef", makeReef},
        {"ripples", makeRipples}, {"silk", makeSilk},
    };
    for (const auto& [known, maker] : makers)
        if (known == name) return maker();
    return nullptr;
}

} // namespace kestro::themes
