#include "platform/movie/MovieTeardown.h"

#include <QDir>

#include <atomic>
#include <chrono>
#include <future>
#include <gtest/gtest.h>
#include <memory>
#include <semaphore>

using namespace kestro;

TEST(MovieTeardown, isDone_whenFinished)
{
    std::atomic<int> freed = 0;
    for (int i = 0; i < 5; ++i)
        tearDownLater([&freed] { ++freed; });
    finishMovieTeardown();
    EXPECT_EQ(freed, 5);
}

TEST(MovieTeardown, startsNoMoreThreadsThanItsBound_andFreesAllInTheEnd)
{
    constexpr int count = 4 * mostTeardownThreads;
    const auto threads = [] { return QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs).size(); };
    const auto freed = std::make_shared<std::counting_semaphore<count>>(0);
    std::promise<void> release;
    const std::shared_future<void> held = release.get_future().share();
    const auto before = threads();
    for (int i = 0; i < count; ++i)
        tearDownLater([held, freed] {
            held.wait();
            freed->release();
        });
    EXPECT_LE(threads() - before, mostTeardownThreads);
    release.set_value();
    for (int i = 0; i < count; ++i)
        ASSERT_TRUE(freed->try_acquire_for(std::chrono::minutes(3))) << i;
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
