#include "platform/movie/MovieTeardown.h"

#include <atomic>
#include <chrono>
#include <future>
#include <gtest/gtest.h>
#include <memory>

using namespace kestro;

TEST(MovieTeardown, isDone_whenFinished)
{
    std::atomic<int> freed = 0;
    for (int i = 0; i < 5; ++i)
        tearDownLater([&freed] { ++freed; });
    finishMovieTeardown();
    EXPECT_EQ(freed, 5);
}

TEST(MovieTeardown, doesNotHoldUpItsCaller_norForeverTheEnd)
{
    std::promise<void> release;
    auto freed = std::make_shared<std::promise<void>>();
    tearDownLater([held = release.get_future().share(), freed] {
        held.wait();
        freed->set_value();
    });
    auto done = freed->get_future();
    finishMovieTeardown(); // gives up, or this test would never come to the next line
    EXPECT_EQ(done.wait_for(std::chrono::seconds(0)), std::future_status::timeout);
    release.set_value();
    EXPECT_EQ(done.wait_for(std::chrono::minutes(3)), std::future_status::ready);
}
