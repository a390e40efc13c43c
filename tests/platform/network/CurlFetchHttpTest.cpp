#include "platform/network/CurlFetchTest.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <limits>
#include <sys/socket.h>
#include <unistd.h>

namespace kestro {

namespace {

using Answer = LoopbackServer::Answer;
using Then = LoopbackServer::Then;

constexpr qint64 fewBytes = 1000;

FetchLimits smallLimits()
{
    FetchLimits limits;
    limits.bytes = fewBytes;
    return limits;
}

FetchLimits impatient()
{
    FetchLimits limits;
    limits.connectSeconds = 0.2;
    limits.silenceSeconds = 0.2;
    return limits;
}

LoopbackServer::Answering always(const Answer& answer)
{
    return [=](const std::string&, const std::string&) { return answer; };
}

Answer movedTo(const std::string& place, const std::string& body = {})
{
    return LoopbackServer::whole(body, "302 Found", "Location: " + place + "\r\n");
}

/// "/N" is N redirects away from its content.
Answer chain(const std::string& path, const std::string&)
{
    const int left = std::stoi(path.substr(1));
    return left == 0 ? LoopbackServer::whole("end") : movedTo("/" + std::to_string(left - 1));
}

/// A socket on loopback that lets nobody finish connecting, because its queue is full.
class FullSocket final {
public:
    FullSocket()
    {
        m_address.sin_family = AF_INET;
        m_address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        m_listener = socket(AF_INET, SOCK_STREAM, 0);
        auto* address = reinterpret_cast<sockaddr*>(&m_address);
        socklen_t size = sizeof m_address;
        EXPECT_EQ(bind(m_listener, address, size), 0);
        EXPECT_EQ(listen(m_listener, 0), 0);
        EXPECT_EQ(getsockname(m_listener, address, &size), 0);
        for (int& client : m_clients) {
            client = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0);
            EXPECT_TRUE(connect(client, address, size) == 0 || errno == EINPROGRESS);
        }
    }
    ~FullSocket()
    {
        for (const int client : m_clients)
            close(client);
        close(m_listener);
    }
    FullSocket(const FullSocket&) = delete;
    FullSocket& operator=(const FullSocket&) = delete;

    [[nodiscard]] std::string url() const
    {
        return "http://127.0.0.1:" + std::to_string(ntohs(m_address.sin_port)) + "/";
    }

private:
    sockaddr_in m_address = {};
    int m_listener = -1;
    int m_clients[4] = {};
};

} // namespace

TEST(CurlFetchHttp, fetch_answersTheBody_asItWasSent)
{
    const std::string body("<html>\0\xff\r\n</html>", 18);
    const LoopbackServer server(always(LoopbackServer::whole(body)));
    CurlFetch fetch;
    EXPECT_EQ(bytesAt(fetch, server.url("/trailers/a%20b?x=1&y=%C3%BC#top")), body);
    EXPECT_EQ(server.requests(), std::vector<std::string>{"/trailers/a%20b?x=1&y=%C3%BC"});
}

TEST(CurlFetchHttp, fetch_answersNoBytes_whenTheBodyIsEmpty)
{
    const LoopbackServer server([](const std::string& path, const std::string&) {
        return path == "/204" ? Answer{"HTTP/1.1 204 No Content\r\n\r\n"} : LoopbackServer::whole("");
    });
    CurlFetch fetch;
    EXPECT_EQ(bytesAt(fetch, server.url("/200")), "");
    EXPECT_EQ(bytesAt(fetch, server.url("/204")), "");
}

TEST(CurlFetchHttp, fetch_asksForUnpackedContent_andUnpacksNothing)
{
    const std::string packed("\x1f\x8b\x08\0packed", 10);
    std::string head;
    const LoopbackServer server([&](const std::string&, const std::string& text) {
        head = text;
        return LoopbackServer::whole(packed, "200 OK", "Content-Encoding: gzip\r\n");
    });
    CurlFetch fetch;
    EXPECT_EQ(bytesAt(fetch, server.url("/")), packed);
    EXPECT_NE(head.find("Accept-Encoding: identity\r\n"), std::string::npos) << head;
}

TEST(CurlFetchHttp, fetch_fails_whenTheStatusIsNoSuccess)
{
    const LoopbackServer server([](const std::string& path, const std::string&) {
        return LoopbackServer::whole("a page about it", path.substr(1) + " Status");
    });
    CurlFetch fetch;
    for (const char* status : {"300", "302", "304", "400", "401", "403", "404", "410", "500", "503"})
        EXPECT_NE(errorAt(fetch, server.url(std::string("/") + status)).find(status), std::string::npos)
            << status;
    EXPECT_EQ(bytesAt(fetch, server.url("/200")), "a page about it");
    EXPECT_FALSE(bytesAt(fetch, server.url("/404")));
}

TEST(CurlFetchHttp, fetch_keepsTheConnection_fromOnePageToTheNext)
{
    const LoopbackServer server([](const std::string& path, const std::string&) {
        return LoopbackServer::whole(path, path == "/b" ? "404 Not Found" : "200 OK");
    });
    CurlFetch fetch;
    EXPECT_EQ(bytesAt(fetch, server.url("/a")), "/a");
    EXPECT_FALSE(bytesAt(fetch, server.url("/b")));
    EXPECT_EQ(bytesAt(fetch, server.url("/c")), "/c");
    EXPECT_EQ(server.connections(), 1);
}

TEST(CurlFetchHttp, fetch_followsFiveRedirects_andNotSix)
{
    const LoopbackServer server(chain);
    CurlFetch fetch;
    EXPECT_EQ(bytesAt(fetch, server.url("/5")), "end");
    EXPECT_FALSE(bytesAt(fetch, server.url("/6")));
}

TEST(CurlFetchHttp, fetch_fails_whenRedirectsGoInCircles)
{
    const LoopbackServer server([](const std::string& path, const std::string&) { return movedTo(path); });
    CurlFetch fetch;
    EXPECT_FALSE(bytesAt(fetch, server.url("/round")));
    EXPECT_EQ(server.requests().size(), 6U);
}

TEST(CurlFetchHttp, fetch_fails_whenARedirectLeadsToAnotherScheme)
{
    const LoopbackServer server(
        [](const std::string& path, const std::string&) { return movedTo(path.substr(1)); });
    CurlFetch fetch;
    for (const char* place :
         {"file:///etc/passwd", "FILE:///etc/passwd", "ftp://127.0.0.1/", "gopher://127.0.0.1/", "data:,x"})
        EXPECT_FALSE(bytesAt(fetch, server.url(std::string("/") + place))) << place;
}

TEST(CurlFetchHttp, fetch_takesABodyOfTheLimit_andNothingLarger)
{
    const std::string full(fewBytes, 'x');
    const LoopbackServer server([&](const std::string& path, const std::string&) -> Answer {
        const std::string body = path.ends_with("full") ? full : full + "x";
        if (path.starts_with("/length")) return LoopbackServer::whole(body);
        if (path.starts_with("/chunks"))
            return {"HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n3e8\r\n" + full + "\r\n" +
                    (path.ends_with("full") ? "" : "1\r\nx\r\n") + "0\r\n\r\n"};
        return {"HTTP/1.1 200 OK\r\n\r\n" + body, Then::Close};
    });
    CurlFetch fetch(smallLimits());
    for (const char* kind : {"/length", "/chunks", "/close"}) {
        EXPECT_EQ(bytesAt(fetch, server.url(std::string(kind) + "/full")), full) << kind;
        EXPECT_NE(errorAt(fetch, server.url(std::string(kind) + "/more")).find("larger than 1000 bytes"),
                  std::string::npos)
            << kind;
    }
}

TEST(CurlFetchHttp, fetch_fails_whenTheLengthIsAnnouncedTooLarge)
{
    const LoopbackServer server(always({"HTTP/1.1 200 OK\r\nContent-Length: 1001\r\n\r\n", Then::Hang}));
    CurlFetch fetch(smallLimits());
    EXPECT_FALSE(bytesAt(fetch, server.url("/")));
}

TEST(CurlFetchHttp, fetch_fails_whenTheServerSendsWithoutEnd)
{
    const std::string block(10'000, 'x');
    const LoopbackServer server([&](const std::string& path, const std::string&) -> Answer {
        if (path == "/header") return {"HTTP/1.1 200 OK\r\nX: " + block + "\r\n", Then::Repeat};
        if (path == "/headers") return {"HTTP/1.1 200 OK\r\nX: x\r\nY: y\r\n", Then::Repeat};
        if (path == "/moved") return {"HTTP/1.1 302 Found\r\nLocation: /\r\n\r\n" + block, Then::Repeat};
        return {"HTTP/1.1 200 OK\r\n\r\n" + block, Then::Repeat};
    });
    CurlFetch fetch;
    for (const char* path : {"/body", "/moved", "/header", "/headers"})
        EXPECT_FALSE(bytesAt(fetch, server.url(path))) << path;
}

TEST(CurlFetchHttp, fetch_tellsWhatIsOverALimit_fromWhatCannotBeRead)
{
    const LoopbackServer server([](const std::string& path, const std::string&) -> Answer {
        if (path == "/large") return LoopbackServer::whole(std::string(fewBytes + 1, 'x'));
        if (path == "/round") return movedTo(path);
        if (path == "/silent") return {"", Then::Hang};
        if (path == "/broken") return {"HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nhalf", Then::Close};
        return LoopbackServer::whole("gone", "404 Not Found");
    });
    FetchLimits limits = smallLimits();
    limits.silenceSeconds = 0.2;
    CurlFetch fetch(limits);
    for (const char* path : {"/large", "/round", "/silent"})
        EXPECT_EQ(faultAt(fetch, server.url(path)), FetchFault::Kind::OverLimit) << path;
    for (const char* path : {"/gone", "/broken"})
        EXPECT_EQ(faultAt(fetch, server.url(path)), FetchFault::Kind::Unreadable) << path;
}

TEST(CurlFetchHttp, fetch_fails_whenTheServerKeepsSilent)
{
    const LoopbackServer server([](const std::string& path, const std::string&) -> Answer {
        if (path == "/never") return {"", Then::Hang};
        if (path == "/head") return {"HTTP/1.1 200 OK\r\n", Then::Hang};
        return {"HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nhalf", Then::Hang};
    });
    CurlFetch fetch(impatient());
    for (const char* path : {"/never", "/head", "/half"})
        EXPECT_NE(errorAt(fetch, server.url(path)).find("silent"), std::string::npos) << path;
}

// It never keeps silent: a byte comes now and then.
TEST(CurlFetchHttp, fetch_fails_whenTheServerSendsForTooLong)
{
    const LoopbackServer server(always({"HTTP/1.1 200 OK\r\n\r\n" + std::string(10'000, 'x'), Then::Repeat}));
    FetchLimits limits;
    limits.bytes = std::numeric_limits<qint64>::max();
    limits.seconds = 0.05;
    CurlFetch fetch(limits);
    EXPECT_NE(errorAt(fetch, server.url("/")).find("not whole after 0.05 seconds"), std::string::npos);
    EXPECT_EQ(faultAt(fetch, server.url("/")), FetchFault::Kind::OverLimit);
}

TEST(CurlFetchHttp, received_countsAllThatCame_failuresToo)
{
    const LoopbackServer server([](const std::string& path, const std::string&) -> Answer {
        if (path == "/whole") return LoopbackServer::whole(std::string(500, 'x'));
        if (path == "/broken")
            return {"HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\n" + std::string(700, 'x'), Then::Close};
        return {"HTTP/1.1 200 OK\r\n\r\n" + std::string(1001, 'x'), Then::Close};
    });
    CurlFetch fetch(smallLimits());
    EXPECT_EQ(fetch.received(), 0);
    qint64 before = 0;
    for (const auto& [path, bytes] : {std::pair("/whole", 500), std::pair("/broken", 700)}) {
        (void)bytesAt(fetch, server.url(path));
        EXPECT_GE(fetch.received() - before, bytes) << path;
        EXPECT_LT(fetch.received() - before, bytes + 200) << path;
        before = fetch.received();
    }
    EXPECT_FALSE(bytesAt(fetch, server.url("/large")));
    EXPECT_GT(fetch.received() - before, 0);
}

TEST(CurlFetchHttp, fetch_fails_whenNobodyTakesTheConnection)
{
    const FullSocket full;
    CurlFetch fetch(impatient());
    EXPECT_FALSE(bytesAt(fetch, full.url()));
}

TEST(CurlFetchHttp, fetch_fails_whenTheServerGoesAway)
{
    const LoopbackServer server([](const std::string& path, const std::string&) -> Answer {
        if (path == "/half") return {"HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nhalf", Then::Close};
        return {path == "/noise" ? "\x16\x03\x01 this is not HTTP\r\n\r\n" : "", Then::Close};
    });
    CurlFetch fetch;
    for (const char* path : {"/half", "/nothing", "/noise"})
        EXPECT_FALSE(bytesAt(fetch, server.url(path))) << path;
}

TEST(CurlFetchHttp, fetch_fails_whenNobodyListens)
{
    int port = 0;
    {
        const LoopbackServer gone(always({}));
        port = gone.port();
    }
    CurlFetch fetch;
    EXPECT_FALSE(bytesAt(fetch, "http://127.0.0.1:" + std::to_string(port) + "/"));
}

TEST(CurlFetchHttp, fetch_fails_whenTheURLIsOfAnotherKind)
{
    CurlFetch fetch;
    for (const char* url : {"", "trailers/", "//127.0.0.1/", "ftp://127.0.0.1/", "data:,x", "http://",
                            "http:///x", "http://127.0.0.1:99999/", "javascript:0"})
        EXPECT_FALSE(bytesAt(fetch, url)) << url;
}

TEST(CurlFetchHttp, fetch_worksAgain_afterEachFailure)
{
    const LoopbackServer server([](const std::string& path, const std::string&) -> Answer {
        if (path == "/silent") return {"", Then::Hang};
        if (path == "/large") return LoopbackServer::whole(std::string(fewBytes + 1, 'x'));
        return LoopbackServer::whole("good");
    });
    FetchLimits limits = impatient();
    limits.bytes = fewBytes;
    CurlFetch fetch(limits);
    for (const char* path : {"/silent", "/large"}) {
        EXPECT_FALSE(bytesAt(fetch, server.url(path)));
        EXPECT_EQ(bytesAt(fetch, server.url("/good")), "good");
    }
}

} // namespace kestro
