#include "config_ui/ProbeWorker.h"

#include <atomic>
#include <gtest/gtest.h>
#include <vector>

namespace kestro {

namespace {

QUrl movie(int number)
{
    return QUrl(QStringLiteral("http://m/%1").arg(number));
}

/// A lane whose movies are read one at a time, each once the test lets it.
class ProbeWorkerTest : public testing::Test {
protected:
    ~ProbeWorkerTest() override { letAll(); }

    void letAll()
    {
        m_left = 1000;
        m_left.notify_all();
    }
    void letOne()
    {
        ++m_left;
        m_left.notify_all();
    }
    /// Waits until that many have been begun.
    void waitForReads(int count)
    {
        for (int seen = m_begun; seen < count; seen = m_begun)
            m_begun.wait(seen);
    }
    void waitForDeliveries(int count)
    {
        for (int seen = m_count; seen < count; seen = m_count)
            m_count.wait(seen);
    }

    EntryFacts read(const QUrl& url, const std::stop_token& stop)
    {
        reads.push_back(url);
        ++m_begun;
        m_begun.notify_all();
        const std::stop_callback wake(stop, [this] { m_left.notify_all(); });
        for (int left = m_left; left == 0 && !stop.stop_requested(); left = m_left)
            if (!stops) m_left.wait(0);
        if (!stop.stop_requested()) --m_left;
        return {};
    }
    void deliver(const QUrl& url)
    {
        delivered.push_back(url);
        ++m_count;
        m_count.notify_all();
    }

    std::vector<QUrl> reads; ///< of the lane's thread; the test looks once it waited
    std::vector<QUrl> delivered;
    bool stops = false; ///< reading spins, so that it sees a stop

private:
    std::atomic<int> m_left{0};
    std::atomic<int> m_begun{0};
    std::atomic<int> m_count{0};

protected:
    ProbeWorker lane{[this](const QUrl& url, const std::stop_token& stop) { return read(url, stop); },
                     [this](const QUrl& url, const EntryFacts&) { deliver(url); }};
};

} // namespace

TEST_F(ProbeWorkerTest, want_readsInOrder)
{
    letAll();
    lane.want({movie(2), movie(1), movie(3)});
    waitForDeliveries(3);
    EXPECT_EQ(delivered, (std::vector<QUrl>{movie(2), movie(1), movie(3)}));
}

TEST_F(ProbeWorkerTest, want_dropsWhatWasWantedBefore_butForTheOneBeingRead)
{
    lane.want({movie(1), movie(2), movie(3)});
    waitForReads(1);
    lane.want({movie(4), movie(1)});
    letAll();
    waitForDeliveries(2);
    EXPECT_EQ(delivered, (std::vector<QUrl>{movie(1), movie(4)}));
    EXPECT_EQ(reads.size(), 2U);
}

TEST_F(ProbeWorkerTest, want_stopsTheOneBeingRead_whenItIsWantedNoMore)
{
    stops = true;
    lane.want({movie(1)});
    waitForReads(1);
    lane.want({movie(2)});
    waitForReads(2);
    letOne();
    waitForDeliveries(1);
    EXPECT_EQ(delivered, std::vector<QUrl>{movie(2)});
}

TEST_F(ProbeWorkerTest, want_readsAgain_whatWasStoppedAndIsWantedAgain)
{
    stops = true;
    lane.want({movie(1)});
    waitForReads(1);
    lane.want({});
    lane.want({movie(1)});
    waitForReads(2);
    letOne();
    waitForDeliveries(1);
    EXPECT_EQ(delivered, std::vector<QUrl>{movie(1)});
}

} // namespace kestro
