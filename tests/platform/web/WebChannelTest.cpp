#include "platform/web/WebChannel.h"

#include "platform/base/Bounds.h"
#include "platform/web/SharedFrames.h"
#include "support/WaitUntil.h"

#include <QCoreApplication>
#include <QDir>

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <vector>

namespace kestro {

namespace {

class WebChannelTest : public testing::Test {
protected:
    WebChannelTest()
    {
        auto ends = WebChannel::makePair();
        raw = ends->first.number();
        near.emplace(
            std::move(ends->first), WebSpeaker::Saver,
            [this](WebMessage message) { heardNear.push_back(std::move(message)); }, [] {});
        far.emplace(
            std::move(ends->second), WebSpeaker::Helper,
            [this](WebMessage message) { heard.push_back(std::move(message)); }, [this] { isClosed = true; });
    }

    static WebMessage pong()
    {
        WebMessage message;
        message.kind = WebMessage::Kind::Pong;
        return message;
    }

    static int openFiles()
    {
        return static_cast<int>(QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::AllEntries).size());
    }

    std::vector<WebMessage> heard;
    std::vector<WebMessage> heardNear;
    bool isClosed = false;
    int raw = -1;
    std::optional<WebChannel> near;
    std::optional<WebChannel> far;
};

TEST_F(WebChannelTest, send_bringsEveryPartOfAMessage)
{
    WebMessage sent;
    sent.kind = WebMessage::Kind::Fetch;
    sent.view = 7;
    sent.generation = 3;
    sent.request = 9;
    sent.length = 11;
    sent.slot = 1;
    sent.size = {640, 480};
    sent.zoom = 1.5F;
    sent.damage = {1, 2, 3, 4};
    sent.flag = true;
    sent.text = "words";
    ASSERT_TRUE(near->send(sent));
    ASSERT_TRUE(waitUntil([&] { return !heard.empty(); }));
    const WebMessage& got = heard.front();
    EXPECT_EQ(got.kind, sent.kind);
    EXPECT_EQ(got.view, sent.view);
    EXPECT_EQ(got.generation, sent.generation);
    EXPECT_EQ(got.request, sent.request);
    EXPECT_EQ(got.length, sent.length);
    EXPECT_EQ(got.slot, sent.slot);
    EXPECT_EQ(got.size, sent.size);
    EXPECT_EQ(got.zoom, sent.zoom);
    EXPECT_EQ(got.damage, sent.damage);
    EXPECT_EQ(got.flag, sent.flag);
    EXPECT_EQ(got.text, sent.text);
    EXPECT_FALSE(got.memory.isOpen());
}

TEST_F(WebChannelTest, send_handsMemoryOver)
{
    const auto frames = SharedFrames::make({4, 2});
    WebMessage sent;
    sent.kind = WebMessage::Kind::Resize;
    sent.memory = frames->share();
    ASSERT_TRUE(far->send(sent));
    ASSERT_TRUE(waitUntil([&] { return !heardNear.empty(); }));
    auto adopted = SharedFrames::adopt(std::move(heardNear.front().memory), {4, 2});
    ASSERT_TRUE(adopted);
    adopted->writable(1).fill(Qt::red);
    EXPECT_EQ(frames->pixels(1)[2], 255);
}

TEST_F(WebChannelTest, memory_isClosed_whereItBelongsToNoWord)
{
    const auto frames = SharedFrames::make({4, 2});
    const int before = openFiles();
    WebMessage sent = pong();
    sent.memory = frames->share();
    ASSERT_TRUE(near->send(sent));
    sent.memory.reset();
    ASSERT_TRUE(waitUntil([&] { return !heard.empty(); }));
    EXPECT_FALSE(heard.front().memory.isOpen());
    EXPECT_EQ(openFiles(), before);
}

TEST_F(WebChannelTest, aFlood_letsTheEventLoopGoOn)
{
    for (int count = 0; count < 3 * Bounds::webMessagesATurn; ++count)
        ASSERT_TRUE(near->send(pong()));
    QCoreApplication::processEvents();
    EXPECT_LE(heard.size(), static_cast<size_t>(Bounds::webMessagesATurn));
    EXPECT_TRUE(waitUntil([&] { return heard.size() == 3U * Bounds::webMessagesATurn; }));
}

TEST_F(WebChannelTest, send_refusesATextThatIsTooLong)
{
    WebMessage sent;
    sent.text = QByteArray(Bounds::webTextBytes + 1, 'x');
    EXPECT_FALSE(near->send(sent));
}

TEST_F(WebChannelTest, send_failsInsteadOfWaiting_whenNobodyListens)
{
    WebMessage sent;
    sent.text = QByteArray(Bounds::webTextBytes, 'x');
    bool isSent = true;
    for (int i = 0; i < 1000 && isSent; ++i)
        isSent = near->send(sent);
    EXPECT_FALSE(isSent);
}

TEST_F(WebChannelTest, whatIsNoMessage_isDropped)
{
    ASSERT_EQ(::send(raw, "xyz", 3, 0), 3);
    ASSERT_TRUE(near->send(pong()));
    ASSERT_TRUE(waitUntil([&] { return !heard.empty(); }));
    EXPECT_EQ(heard.size(), 1U);
    EXPECT_FALSE(isClosed);
}

TEST_F(WebChannelTest, theOtherEnd_isTold_whenOneIsGone)
{
    near.reset();
    EXPECT_TRUE(waitUntil([&] { return isClosed; }));
}

} // namespace

} // namespace kestro
