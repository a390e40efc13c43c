#include "FrameQueue.h"
#include "Scene.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <thread>
#include <vector>

// kestro-intro [FIRST [END]]: writes the frames of the intro movie to standard output, raw: 1920x1080,
// yuv420p, BT.709, 30 to the second. All of them, or those from FIRST up to, without, END. make-movie.sh
// encodes them.

using namespace kestro::intro;

namespace {

void drawFrames(FrameQueue& queue)
{
    Scene scene;
    for (int number = queue.next(); number >= 0; number = queue.next())
        queue.write(number, scene.frame(number));
}

} // namespace

int main(int count, char** arguments)
{
    std::signal(SIGPIPE, SIG_IGN); // an encoder that ends early is a failed write, reported below
    const int first = std::clamp(count > 1 ? std::atoi(arguments[1]) : 0, 0, Scene::frameCount);
    const int end =
        std::clamp(count > 2 ? std::atoi(arguments[2]) : Scene::frameCount, first, Scene::frameCount);
    FrameQueue queue(stdout, first, end);
    std::vector<std::thread> threads;
    for (unsigned i = 0; i < std::max(std::thread::hardware_concurrency(), 1U); ++i)
        threads.emplace_back([&queue] { drawFrames(queue); });
    for (std::thread& thread : threads)
        thread.join();
    if (!queue.hasFailed() && std::fflush(stdout) == 0) return EXIT_SUCCESS;
    std::fputs("kestro-intro: cannot write the frames\n", stderr);
    return EXIT_FAILURE;
}
