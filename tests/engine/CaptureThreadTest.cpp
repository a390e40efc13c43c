#include "engine/CaptureThread.h"

#include "engine/HeldStills.h"
#include "platform/base/Log.h"
#include "platform/movie/MpvMovieLibrary.h"
#include "platform/movie/QTMovie.h"

#include <algorithm>
#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <system_error>
#include <unistd.h>

namespace kestro {

namespace {

class CaptureThreadTest : public testing::Test {
protected:
    ~CaptureThreadTest() override { joinAll(); }

    CaptureThread::Still stillOf(HeldStills& stills, std::int32_t time = 0)
    {
        return {std::make_shared<HeldStillMovie>(stills), time};
    }
    CaptureThread::Taken taken()
    {
        return [this](const Picture& picture) {
            const std::lock_guard lock(mutex);
            told.push_back(picture);
        };
    }
    std::size_t tellings()
    {
        const std::lock_guard lock(mutex);
        return told.size();
    }
    void joinAll()
    {
        for (auto& thread : threads)
            if (thread.joinable()) thread.join();
    }
    static void settle(const CaptureThread& captures)
    {
        while (captures.isBusy())
            std::this_thread::yield();
    }
    long logged(const QString& line) { return std::count(log.begin(), log.end(), line); }

    std::vector<QString> log;
    LogCapture logCapture{[this](const QString& line) {
        const std::lock_guard lock(mutex);
        log.push_back(line);
    }};
    std::mutex mutex;
    std::vector<Picture> told;
    std::vector<std::thread> threads;
    CaptureThread::Spawn joinable = [this](std::function<void()> run) {
        threads.emplace_back(std::move(run));
    };
};

/// A server on this machine that lets itself be called and never answers.
class SilentServer final {
public:
    SilentServer()
    {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t length = sizeof address;
        auto* plain = reinterpret_cast<sockaddr*>(&address);
        EXPECT_EQ(bind(m_socket, plain, length), 0);
        EXPECT_EQ(listen(m_socket, 8), 0);
        EXPECT_EQ(getsockname(m_socket, plain, &length), 0);
        m_port = ntohs(address.sin_port);
    }
    ~SilentServer() { close(m_socket); }
    SilentServer(const SilentServer&) = delete;
    SilentServer& operator=(const SilentServer&) = delete;

    [[nodiscard]] QUrl url() const { return QUrl(QStringLiteral("http://127.0.0.1:%1/a.mov").arg(m_port)); }

private:
    int m_socket = socket(AF_INET, SOCK_STREAM, 0);
    int m_port = 0;
};

} // namespace

TEST_F(CaptureThreadTest, start_takesTheStillOnAnotherThread)
{
    HeldStills stills;
    CaptureThread captures;
    EXPECT_FALSE(captures.isBusy());
    EXPECT_TRUE(captures.start(stillOf(stills, 300), taken()));
    settle(captures);
    ASSERT_EQ(tellings(), 1U);
    EXPECT_FALSE(told.front().isNull());
    EXPECT_EQ(stills.asked(), (std::vector<MovieTime>{{300, 600}}));
    EXPECT_NE(stills.threads().front(), std::this_thread::get_id());
}

TEST_F(CaptureThreadTest, start_isRefused_whileAnotherStillIsBeingTaken)
{
    HeldStills stills;
    CaptureThread captures;
    stills.hold();
    EXPECT_TRUE(captures.start(stillOf(stills), taken()));
    EXPECT_TRUE(captures.isBusy());
    EXPECT_FALSE(captures.start(stillOf(stills), taken()));
    stills.letGo();
    settle(captures);
    EXPECT_EQ(tellings(), 1U);
    EXPECT_EQ(stills.asked().size(), 1U);
    EXPECT_TRUE(captures.start(stillOf(stills), taken()));
    settle(captures);
    EXPECT_EQ(tellings(), 2U);
}

TEST_F(CaptureThreadTest, start_leavesNothingBusy_whenThereIsNoThread)
{
    HeldStills stills;
    bool isShort = true;
    CaptureThread captures([&](std::function<void()> run) {
        if (isShort) throw std::system_error(std::make_error_code(std::errc::resource_unavailable_try_again));
        threads.emplace_back(std::move(run));
    });
    EXPECT_FALSE(captures.start(stillOf(stills), taken()));
    EXPECT_FALSE(captures.isBusy());
    EXPECT_EQ(log.size(), 1U);
    isShort = false;
    EXPECT_TRUE(captures.start(stillOf(stills), taken()));
    settle(captures);
    EXPECT_EQ(tellings(), 1U);
}

TEST_F(CaptureThreadTest, cancel_givesUpAStillThatIsHeldUp_andTellsNobody)
{
    HeldStills stills;
    CaptureThread captures(joinable);
    stills.hold();
    EXPECT_TRUE(captures.start(stillOf(stills), taken()));
    captures.cancel();
    EXPECT_FALSE(captures.isBusy());
    joinAll();
    EXPECT_EQ(tellings(), 0U);
    EXPECT_EQ(logged("movie doesn't have a image."), 0);
}

// A file system that does not answer holds its reader for good.
TEST_F(CaptureThreadTest, cancel_leavesAloneWhatDoesNotLetItselfBeGivenUp)
{
    HeldStills deaf(false);
    HeldStills stills;
    CaptureThread captures(joinable);
    deaf.hold();
    EXPECT_TRUE(captures.start(stillOf(deaf), taken()));
    captures.cancel();
    EXPECT_FALSE(captures.isBusy());
    EXPECT_TRUE(captures.start(stillOf(stills), taken()));
    settle(captures);
    EXPECT_EQ(tellings(), 1U);
    deaf.letGo();
    joinAll();
    EXPECT_EQ(tellings(), 1U);
}

TEST_F(CaptureThreadTest, wait_returnsOnceTheStillIsTaken_andGivesUpOneThatIsHeldUp)
{
    HeldStills stills;
    CaptureThread captures(joinable);
    captures.wait();
    EXPECT_TRUE(captures.start(stillOf(stills), taken()));
    settle(captures);
    captures.wait();
    EXPECT_EQ(tellings(), 1U);
    stills.hold();
    EXPECT_TRUE(captures.start(stillOf(stills), taken()));
    captures.wait();
    EXPECT_FALSE(captures.isBusy());
    joinAll();
    EXPECT_EQ(tellings(), 1U);
}

// Whoever did not give up would wait for an hour.
TEST_F(CaptureThreadTest, cancel_givesUpAServerThatNeverAnswers)
{
    const SilentServer server;
    MpvMovieLibrary remote({.networkTimeout = 3600});
    const auto movie = remote.movieWithURL(server.url());
    CaptureThread captures(joinable);
    EXPECT_TRUE(captures.start({movie->copyForStills(), 0}, taken()));
    EXPECT_TRUE(captures.isBusy());
    captures.cancel();
    joinAll();
    EXPECT_EQ(tellings(), 0U);
}

TEST_F(CaptureThreadTest, start_tellsOfAStillThatCannotBeHad_andLogsIt)
{
    MpvMovieLibrary library;
    const auto copy = library.movieWithURL(QUrl("http://127.0.0.1:1/gone.mov"))->copyForStills();
    CaptureThread captures(joinable);
    EXPECT_TRUE(captures.start({copy, 0}, taken()));
    joinAll();
    ASSERT_EQ(tellings(), 1U);
    EXPECT_TRUE(told.front().isNull());
    EXPECT_EQ(logged("movie doesn't have a image."), 1);
}

} // namespace kestro
