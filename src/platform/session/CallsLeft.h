#pragma once

#include <functional>
#include <memory>

namespace kestro {

/// A function to be called `count` times, which calls `last` the last time: `count` questions go out at once,
/// and who asked goes on when all have been answered.
[[nodiscard]] inline std::function<void()> afterCalls(int count, std::function<void()> last)
{
    return [left = std::make_shared<int>(count), last = std::move(last)] {
        if (--*left == 0) last();
    };
}

} // namespace kestro
