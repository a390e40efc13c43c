#include "Frame.h"
#include "FrameQueue.h"
#include "Loop.h"
#include "Yuv.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <thread>
#include <vector>

// kestro-themes LOOP COUNT [FIRST [END]]: writes the frames of a theme movie of COUNT frames to standard
// output, raw: 1024x576, yuv420p, BT.709. All of them, or those from FIRST up to, without, END. make-loop.sh
// encodes them.

using namespace kestro::themes;
using kestro::intro::FrameQueue;

namespace {

void drawFrames(FrameQueue& queue, Loop& loop, int count)
{
    Frame frame;
    Yuv yuv;
    for (int number = queue.next(); number >= 0; number = queue.next()) {
        loop.draw(frame, static_cast<float>(number) / static_cast<float>(count));
        queue.write(number, yuv.take(frame));
    }
}

} // namespace

int main(int argumentCount, char** arguments)
{
    std::signal(SIGPIPE, SIG_IGN); // an encoder that ends early is a failed write, reported below
    const auto number = [&](int index, int otherwise) {
        return argumentCount > index ? std::atoi(arguments[index]) : otherwise;
    };
    const int count = number(2, 0);
    if (count < 1 || makeLoop(arguments[1]) == nullptr) {
        std::fputs("usage: kestro-themes LOOP COUNT [FIRST [END]]\n", stderr);
        return 2;
    }
    const int first = std::clamp(number(3, 0), 0, count);
    FrameQueue queue(stdout, first, std::clamp(number(4, count), first, count));
    std::vector<std::thread> threads;
    for (unsigned i = 0; i < std::max(std::thread::hardware_concurrency(), 1U); ++i)
        threads.emplace_back(
            [&queue, loop = makeLoop(arguments[1]), count] { drawFrames(queue, *loop, count); });
    for (std::thread& thread : threads)
        thread.join();
    if (!queue.hasFailed() && std::fflush(stdout) == 0) return EXIT_SUCCESS;
    std::fputs("kestro-themes: cannot write the frames\n", stderr);
    return EXIT_FAILURE;
}
