#include "platform/network/CurlFetchTest.h"

#include <gtest/gtest.h>
#include <thread>

namespace kestro {

namespace {

using Answer = LoopbackServer::Answer;
using Then = LoopbackServer::Then;

/// Answers "/good" alone; hangs, or sends without end, for all else.
Answer answer(const std::string& path, const std::string&)
{
    if (path == "/good") return LoopbackServer::whole("good");
    if (path == "/half") return {"HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nhalf", Then::Hang};
    if (path == "/endless") return {"HTTP/1.1 200 OK\r\n\r\nx", Then::Repeat};
    return {"", Then::Hang};
}

/// A fetch on another thread, as the crawler's.
class Fetching final {
public:
    Fetching(Fetch& fetch, const std::string& url)
        : m_thread([this, &fetch, url] { m_bytes = bytesAt(fetch, url); })
    {
    }
    ~Fetching()
    {
        if (m_thread.joinable()) m_thread.join();
    }
    Fetching(const Fetching&) = delete;
    Fetching& operator=(const Fetching&) = delete;

    [[nodiscard]] std::optional<std::string> result()
    {
        m_thread.join();
        return m_bytes;
    }

private:
    std::optional<std::string> m_bytes;
    std::thread m_thread;
};

FetchLimits patient()
{
    FetchLimits limits;
    limits.connectSeconds = limits.silenceSeconds = 3600;
    return limits;
}

} // namespace

TEST(CurlFetchCancel, cancel_endsTheFetch_whileTheServerHangs)
{
    const LoopbackServer server(answer);
    CurlFetch fetch(patient());
    for (const char* path : {"/never", "/half", "/endless"}) {
        const auto requests = server.requests().size();
        Fetching fetching(fetch, server.url(path));
        ASSERT_TRUE(server.waitForRequests(requests + 1));
        fetch.cancel();
        EXPECT_FALSE(fetching.result()) << path;
        fetch.allow();
    }
}

TEST(CurlFetchCancel, fetch_fails_whileItIsCancelled)
{
    const LoopbackServer server(answer);
    CurlFetch fetch(patient());
    fetch.cancel();
    EXPECT_FALSE(bytesAt(fetch, server.url("/good")));
    EXPECT_FALSE(bytesAt(fetch, server.url("/never")));
    EXPECT_FALSE(bytesAt(fetch, "file:///etc/passwd"));
    EXPECT_EQ(server.connections(), 0);
}

TEST(CurlFetchCancel, fetch_succeedsAgain_onceItIsAllowed)
{
    const LoopbackServer server(answer);
    CurlFetch fetch(patient());
    fetch.cancel();
    EXPECT_FALSE(bytesAt(fetch, server.url("/good")));
    fetch.allow();
    EXPECT_EQ(bytesAt(fetch, server.url("/good")), "good");
}

TEST(CurlFetchCancel, cancel_endsTheFetchThatRuns_evenWhenFetchesAreAllowedAtOnce)
{
    const LoopbackServer server(answer);
    CurlFetch fetch(patient());
    Fetching fetching(fetch, server.url("/never"));
    ASSERT_TRUE(server.waitForRequests(1));
    fetch.cancel();
    fetch.allow();
    EXPECT_FALSE(fetching.result());
}

TEST(CurlFetchCancel, cancel_isSafe_whenNothingRuns)
{
    CurlFetch fetch;
    fetch.cancel();
    fetch.cancel();
    EXPECT_NE(errorAt(fetch, "http://127.0.0.1/").find("cancelled"), std::string::npos);
    EXPECT_EQ(faultAt(fetch, "http://127.0.0.1/"), FetchFault::Kind::Cancelled);
}

} // namespace kestro
