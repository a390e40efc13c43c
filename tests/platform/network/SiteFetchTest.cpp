#include "platform/network/SiteFetch.h"

#include "support/LoopbackServer.h"

#include <QUrl>

#include <gtest/gtest.h>

namespace kestro {

namespace {

QUrl url(const std::string& text)
{
    return QUrl(QString::fromStdString(text));
}

LoopbackServer::Answer leading(const std::string& target)
{
    return LoopbackServer::whole({}, "302 Found", "Location: " + target + "\r\n");
}

std::string errorAt(SiteFetch& fetch, const std::string& address)
{
    const auto content = fetch.fetch(url(address));
    return content ? std::string() : content.error().toStdString();
}

TEST(SiteFetch, fetch_answersBytesAndType)
{
    LoopbackServer server([](const auto&, const auto&) {
        return LoopbackServer::whole("words", "200 OK", "Content-Type: text/plain; charset=utf-8\r\n");
    });
    SiteFetch fetch;
    const auto content = fetch.fetch(url(server.url("/a")));
    ASSERT_TRUE(content);
    EXPECT_EQ(content.value().bytes, "words");
    EXPECT_EQ(content.value().type, QStringLiteral("text/plain; charset=utf-8"));
}

TEST(SiteFetch, fetch_followsARedirectOnTheSite)
{
    LoopbackServer server([](const std::string& path, const auto&) {
        return path == "/a" ? leading("/b") : LoopbackServer::whole("there");
    });
    SiteFetch fetch;
    const auto content = fetch.fetch(url(server.url("/a")));
    ASSERT_TRUE(content);
    EXPECT_EQ(content.value().bytes, "there");
}

TEST(SiteFetch, fetch_followsNoRedirectToAnotherSite)
{
    LoopbackServer other([](const auto&, const auto&) { return LoopbackServer::whole("there"); });
    std::string target;
    LoopbackServer server([&](const auto&, const auto&) { return leading(target); });
    const std::string port = std::to_string(server.port());
    for (const std::string& each : {other.url("/b"), "http://localhost:" + port + "/b",
                                    "https://127.0.0.1:" + port + "/b", std::string("file:///etc/passwd")}) {
        target = each;
        SiteFetch fetch;
        EXPECT_EQ(errorAt(fetch, server.url("/a")), "it leads to another site") << each;
    }
    EXPECT_EQ(other.connections(), 0);
    for (const std::string& path : server.requests())
        EXPECT_EQ(path, "/a");
}

TEST(SiteFetch, fetch_endsARoundOfRedirects)
{
    LoopbackServer server([](const auto&, const auto&) { return leading("/a"); });
    SiteFetch fetch;
    EXPECT_EQ(errorAt(fetch, server.url("/a")), "it leads on and on");
    EXPECT_EQ(server.requests().size(), 6U);
}

TEST(SiteFetch, fetch_connectsToNoPrivateAddress_fromAPublicName)
{
    LoopbackServer server([](const auto&, const auto&) { return LoopbackServer::whole("there"); });
    const QString port = QString::number(server.port());
    for (const char* address : {"127.0.0.1", "[::ffff:127.0.0.1]"}) {
        SiteFetch fetch({}, {QStringLiteral("movies.example.org:") + port + u':' + QLatin1String(address)});
        EXPECT_EQ(errorAt(fetch, "http://movies.example.org:" + port.toStdString() + "/a"),
                  "its name leads to a private address");
    }
    EXPECT_EQ(server.connections(), 0);
}

TEST(SiteFetch, fetch_connectsToAPrivateAddress_fromANameOfThePersonsOwnNetwork)
{
    LoopbackServer server([](const auto&, const auto&) { return LoopbackServer::whole("there"); });
    const QString port = QString::number(server.port());
    SiteFetch fetch({}, {QStringLiteral("nas:") + port + QStringLiteral(":127.0.0.1")});
    EXPECT_EQ(errorAt(fetch, "http://nas:" + port.toStdString() + "/a"), "");
}

TEST(SiteFetch, fetch_asksNoProxy)
{
    LoopbackServer proxy([](const auto&, const auto&) { return LoopbackServer::whole("by proxy"); });
    LoopbackServer server([](const auto&, const auto&) { return LoopbackServer::whole("direct"); });
    qputenv("http_proxy", QByteArray::fromStdString(proxy.url("")));
    qputenv("no_proxy", "example.org");
    SiteFetch fetch;
    EXPECT_EQ(errorAt(fetch, server.url("/a")), "");
    qunsetenv("http_proxy");
    EXPECT_EQ(proxy.connections(), 0);
    EXPECT_EQ(server.connections(), 1);
}

TEST(SiteFetch, fetch_sendsNoCookieBack)
{
    std::string heads;
    LoopbackServer server([&](const auto&, const std::string& head) {
        heads += head;
        return LoopbackServer::whole("a", "200 OK", "Set-Cookie: mark=1\r\n");
    });
    SiteFetch fetch;
    ASSERT_EQ(errorAt(fetch, server.url("/a")), "");
    ASSERT_EQ(errorAt(fetch, server.url("/b")), "");
    EXPECT_EQ(heads.find("Cookie"), std::string::npos);
}

TEST(SiteFetch, fetch_readsNothingButTheWeb)
{
    SiteFetch fetch;
    for (const char* address : {"file:///etc/hostname", "ftp://h/a", "data:,x", "http:///a", ""})
        EXPECT_EQ(errorAt(fetch, address), "neither http nor https") << address;
}

TEST(SiteFetch, fetch_isAnError_forAServersErrorAndForTooMuch)
{
    LoopbackServer server([](const std::string& path, const auto&) {
        return path == "/gone" ? LoopbackServer::whole("x", "404 Not Found")
                               : LoopbackServer::whole(std::string(2000, 'x'));
    });
    FetchLimits limits;
    limits.bytes = 1000;
    SiteFetch fetch(limits);
    EXPECT_EQ(errorAt(fetch, server.url("/gone")), "the server answers with status 404");
    EXPECT_EQ(errorAt(fetch, server.url("/large")), "larger than 1000 bytes");
}

TEST(SiteFetch, cancel_endsWhatRuns_andAllThatComesLater)
{
    LoopbackServer server([](const auto&, const auto&) {
        return LoopbackServer::Answer{"HTTP/1.1 200 OK\r\n", LoopbackServer::Then::Hang};
    });
    SiteFetch fetch;
    std::thread canceller([&] {
        EXPECT_TRUE(server.waitForRequests(1));
        fetch.cancel();
    });
    EXPECT_NE(errorAt(fetch, server.url("/a")), "");
    canceller.join();
    EXPECT_EQ(errorAt(fetch, server.url("/a")), "cancelled");
    EXPECT_EQ(server.connections(), 1);
}

} // namespace

} // namespace kestro
