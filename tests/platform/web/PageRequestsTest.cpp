#include "platform/web/PageRequests.h"

#include "platform/base/Bounds.h"
#include "support/LoopbackServer.h"
#include "support/WaitUntil.h"

#include <QCoreApplication>

#include <gtest/gtest.h>
#include <map>
#include <optional>

namespace kestro {

namespace {

QUrl url(const std::string& text)
{
    return QUrl(QString::fromStdString(text));
}

class PageRequestsTest : public testing::Test {
protected:
    void begin(const QUrl& page)
    {
        requests.emplace(page, [this](quint32 request, const PageRequests::Answer& answer) {
            told[request] = answer ? answer.value().bytes : "failed: " + answer.error().toUtf8();
        });
    }

    std::map<quint32, QByteArray> told;
    std::optional<PageRequests> requests;
};

TEST_F(PageRequestsTest, ask_tellsEachAnswerUnderItsNumber)
{
    LoopbackServer site([](const std::string& path, const auto&) { return LoopbackServer::whole(path); });
    begin(url(site.url("/a.swf")));
    requests->ask(7, url(site.url("/one")));
    requests->ask(3, url(site.url("/other")));
    ASSERT_TRUE(waitUntil([this] { return told.size() == 2; }));
    EXPECT_EQ(told[7], "/one");
    EXPECT_EQ(told[3], "/other");
}

TEST_F(PageRequestsTest, ask_refusesWhatIsNotOnThePagesSite)
{
    LoopbackServer other([](const auto&, const auto&) { return LoopbackServer::whole("there"); });
    for (const char* page : {"http://127.0.0.1:1/a.swf", "file:///a.swf"}) {
        told.clear();
        begin(url(page));
        quint32 number = 0;
        for (const std::string& wish :
             {other.url("/b"), std::string("file:///etc/passwd"), std::string("data:,a")})
            requests->ask(++number, url(wish));
        EXPECT_TRUE(waitUntil([this] { return told.size() == 3; }));
        for (const auto& [request, answer] : told)
            EXPECT_TRUE(answer.startsWith("failed: ")) << answer.toStdString();
    }
    EXPECT_EQ(other.connections(), 0);
}

TEST_F(PageRequestsTest, ask_refusesAtOnce_whenTooManyWait)
{
    LoopbackServer site([](const auto&, const auto&) {
        return LoopbackServer::Answer{{}, LoopbackServer::Then::Hang};
    });
    begin(url(site.url("/a.swf")));
    requests->ask(0, url(site.url("/never")));
    ASSERT_TRUE(site.waitForRequests(1));
    for (quint32 count = 1; count <= Bounds::webRequestsWaiting; ++count)
        requests->ask(count, url(site.url("/later")));
    EXPECT_TRUE(told.empty());
    requests->ask(1000, url(site.url("/later")));
    EXPECT_EQ(told[1000], "failed: too many requests");
}

TEST_F(PageRequestsTest, itsEnd_waitsForNoSite_andTellsNothingMore)
{
    LoopbackServer site([](const auto&, const auto&) {
        return LoopbackServer::Answer{{}, LoopbackServer::Then::Hang};
    });
    begin(url(site.url("/a.swf")));
    requests->ask(1, url(site.url("/never")));
    ASSERT_TRUE(site.waitForRequests(1));
    requests.reset();
    QCoreApplication::processEvents();
    EXPECT_TRUE(told.empty());
}

} // namespace

} // namespace kestro
