#include "platform/base/PostTo.h"

#include "support/WaitUntil.h"

#include <QCoreApplication>
#include <QThread>
#include <QThreadPool>

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <thread>
#include <vector>

namespace kestro {

namespace {

class PostTo : public testing::Test {
protected:
    int m_count = 0;
    char m_name[5] = "test";
    char* m_words[2] = {m_name, nullptr};
    QCoreApplication m_application{m_count = 1, m_words};
};

} // namespace

TEST_F(PostTo, postTo_runsOnTheReceiversThread_whenAnotherPosts)
{
    QObject receiver;
    bool isDone = false;
    QThread* where = nullptr;
    std::thread([&] {
        postTo(receiver, [&] {
            where = QThread::currentThread();
            isDone = true;
        });
    }).join();
    EXPECT_FALSE(isDone);
    ASSERT_TRUE(waitUntil([&] { return isDone; }));
    EXPECT_EQ(where, receiver.thread());
}

TEST_F(PostTo, postTo_keepsTheOrder)
{
    QObject receiver;
    std::vector<int> seen;
    bool isDone = false;
    std::thread([&] {
        for (int i = 0; i < 100; ++i)
            postTo(receiver, [&seen, i] { seen.push_back(i); });
        postTo(receiver, [&isDone] { isDone = true; });
    }).join();
    ASSERT_TRUE(waitUntil([&] { return isDone; }));
    ASSERT_EQ(seen.size(), 100U);
    EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end()));
}

TEST_F(PostTo, postTo_runsNothingAndLetsGo_whenTheReceiverIsGone)
{
    auto receiver = std::make_unique<QObject>();
    const auto held = std::make_shared<bool>(false);
    postTo(*receiver, [held] { *held = true; });
    EXPECT_GT(held.use_count(), 1);
    receiver.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(held.use_count(), 1);
    EXPECT_FALSE(*held);
}

TEST_F(PostTo, runOn_runsOnAThreadOfThePool)
{
    QThreadPool pool;
    QThread* where = nullptr;
    runOn(pool, [&where] { where = QThread::currentThread(); });
    ASSERT_TRUE(pool.waitForDone());
    EXPECT_NE(where, nullptr);
    EXPECT_NE(where, QThread::currentThread());
}

} // namespace kestro
