#include "platform/base/DetachedTask.h"

#include "support/WaitUntil.h"

#include <QCoreApplication>
#include <QThread>

#include <array>
#include <atomic>
#include <future>
#include <gtest/gtest.h>
#include <pthread.h>
#include <vector>

using namespace kestro;

using std::chrono::milliseconds;

static const milliseconds plenty = std::chrono::minutes(3);

namespace {

/// Work that comes back when it is let go of, and counts how often it ran.
class HeldWork final {
public:
    ~HeldWork() { release(); }

    [[nodiscard]] std::function<int()> work() const
    {
        return [runs = m_runs, held = m_held] {
            ++*runs;
            held.wait();
            return 42;
        };
    }
    void release()
    {
        if (!std::exchange(m_isReleased, true)) m_release.set_value();
    }
    [[nodiscard]] int runs() const { return *m_runs; }

private:
    bool m_isReleased = false;
    std::promise<void> m_release;
    std::shared_future<void> m_held = m_release.get_future().share();
    std::shared_ptr<std::atomic<int>> m_runs = std::make_shared<std::atomic<int>>(0);
};

/// What `done` was told: nothing yet, or none, or an answer.
struct Heard {
    int times = 0;
    std::optional<int> answer;

    [[nodiscard]] std::function<void(std::optional<int>)> done()
    {
        return [this](std::optional<int> came) {
            ++times;
            answer = came;
        };
    }
};

/// While it lives no thread can be made: each would want more memory than there is.
class NoThreads final {
public:
    NoThreads()
    {
        pthread_getattr_default_np(&m_before);
        pthread_attr_t huge;
        pthread_getattr_default_np(&huge);
        pthread_attr_setstacksize(&huge, std::size_t{1} << 50);
        pthread_setattr_default_np(&huge);
        pthread_attr_destroy(&huge);
    }
    ~NoThreads()
    {
        pthread_setattr_default_np(&m_before);
        pthread_attr_destroy(&m_before);
    }

private:
    pthread_attr_t m_before{};
};

} // namespace

class DetachedTaskOf : public testing::Test {
protected:
    [[nodiscard]] auto start(const char* key, const HeldWork& work, Heard& heard,
                             milliseconds longest = plenty)
    {
        return DetachedTask::start<int>(keyOf(key), longest, work.work(), heard.done());
    }
    /// One that no other test uses: what those left behind may still be coming back.
    [[nodiscard]] QString keyOf(const char* key) const
    {
        return QStringLiteral("%1 of test %2").arg(QLatin1String(key)).arg(m_number);
    }
    /// Leaves one behind whose time is up.
    void letOneHang(const char* key, const HeldWork& work)
    {
        Heard heard;
        const auto task = start(key, work, heard, milliseconds(1));
        ASSERT_TRUE(waitUntil([&] { return heard.times == 1 && work.runs() == 1; }));
        EXPECT_FALSE(heard.answer);
    }

    static inline int s_tests = 0;
    const int m_number = ++s_tests;
    int m_argc = 1;
    std::array<char, 5> m_name{"test"};
    std::array<char*, 2> m_argv{m_name.data(), nullptr};
    std::unique_ptr<QCoreApplication> m_application =
        std::make_unique<QCoreApplication>(m_argc, m_argv.data());
};

TEST_F(DetachedTaskOf, worksOnAThreadOfItsOwn_andAnswersOnThisOne)
{
    QThread* const here = QThread::currentThread();
    QThread* answeredOn = nullptr;
    std::optional<bool> workedHere;
    const auto task = DetachedTask::start<bool>(
        keyOf("look"), plenty, [here] { return QThread::currentThread() == here; },
        [&](std::optional<bool> answer) {
            workedHere = answer;
            answeredOn = QThread::currentThread();
        });
    EXPECT_FALSE(workedHere);
    ASSERT_TRUE(waitUntil([&answeredOn] { return answeredOn != nullptr; }));
    EXPECT_EQ(workedHere, false);
    EXPECT_EQ(answeredOn, here);
}

TEST_F(DetachedTaskOf, answersNone_whenItsTimeIsUp)
{
    HeldWork work;
    Heard heard;
    const auto task = start("look", work, heard, milliseconds(1));
    ASSERT_TRUE(waitUntil([&heard] { return heard.times > 0; }));
    EXPECT_FALSE(heard.answer);
    work.release();
    Heard later; // on the same event loop, after what the first would have said
    const auto other = start("other", work, later);
    ASSERT_TRUE(waitUntil([&later] { return later.times == 1; }));
    EXPECT_EQ(heard.times, 1);
}

TEST_F(DetachedTaskOf, isRefused_whileTheWorkOfItsKeyIsOverdue)
{
    HeldWork work;
    letOneHang("hung", work);
    Heard heard;
    EXPECT_EQ(start("hung", work, heard), nullptr);
    EXPECT_EQ(start("hung", work, heard), nullptr);
    EXPECT_EQ(work.runs(), 1);
    HeldWork free;
    free.release();
    const auto other = start("other", free, heard);
    ASSERT_NE(other, nullptr);
    EXPECT_TRUE(waitUntil([&heard] { return heard.answer == 42; }));
}

TEST_F(DetachedTaskOf, isTakenAgain_onceTheOverdueWorkIsBack)
{
    HeldWork work;
    letOneHang("hung", work);
    work.release();
    Heard heard;
    std::unique_ptr<DetachedTask> task;
    ASSERT_TRUE(waitUntil([&] { return (task = start("hung", work, heard)) != nullptr; }));
    EXPECT_TRUE(waitUntil([&heard] { return heard.answer == 42; }));
}

TEST_F(DetachedTaskOf, sharesTheWork_whenItsKeyIsUnderWay)
{
    HeldWork work;
    Heard one;
    Heard two;
    const auto first = start("look", work, one);
    ASSERT_TRUE(waitUntil([&work] { return work.runs() == 1; }));
    const auto second = start("look", work, two);
    work.release();
    EXPECT_TRUE(waitUntil([&] { return one.times == 1 && two.times == 1; }));
    EXPECT_EQ(one.answer, 42);
    EXPECT_EQ(two.answer, 42);
    EXPECT_EQ(work.runs(), 1);
}

TEST_F(DetachedTaskOf, sharesWorkThatNobodyWaitsForAnyMore)
{
    HeldWork work;
    Heard gone;
    static_cast<void>(start("look", work, gone));
    Heard heard;
    const auto task = start("look", work, heard);
    work.release();
    EXPECT_TRUE(waitUntil([&heard] { return heard.answer == 42; }));
    EXPECT_EQ(work.runs(), 1);
    EXPECT_EQ(gone.times, 0);
}

TEST_F(DetachedTaskOf, isSilent_onceItIsGone)
{
    HeldWork work;
    Heard gone;
    Heard stays;
    auto task = start("look", work, gone);
    const auto other = start("look", work, stays);
    task.reset();
    work.release();
    ASSERT_TRUE(waitUntil([&stays] { return stays.times == 1; }));
    EXPECT_EQ(gone.times, 0);
}

TEST_F(DetachedTaskOf, mayBeEnded_byAnAnswer)
{
    HeldWork work;
    std::vector<std::unique_ptr<DetachedTask>> tasks;
    int told = 0;
    for (int i = 0; i < 3; ++i)
        tasks.push_back(DetachedTask::start<int>(keyOf("look"), plenty, work.work(), [&](std::optional<int>) {
            ++told;
            tasks.clear();
        }));
    work.release();
    EXPECT_TRUE(waitUntil([&tasks] { return tasks.empty(); }));
    EXPECT_EQ(told, 1);
}

TEST_F(DetachedTaskOf, isRefused_whenThereIsNoThreadToBeHad)
{
    HeldWork work;
    work.release();
    Heard heard;
    {
        const NoThreads none;
        EXPECT_EQ(start("look", work, heard), nullptr);
    }
    const auto task = start("look", work, heard);
    EXPECT_TRUE(waitUntil([&heard] { return heard.answer == 42; }));
}

TEST_F(DetachedTaskOf, outlivesTheApplication)
{
    HeldWork work;
    Heard gone;
    static_cast<void>(start("look", work, gone));
    m_application.reset();
    work.release();
    m_application = std::make_unique<QCoreApplication>(m_argc, m_argv.data());
    Heard heard;
    std::unique_ptr<DetachedTask> task;
    EXPECT_TRUE(waitUntil([&] {
        if (!task) task = start("other", work, heard);
        return heard.answer == 42;
    }));
}
