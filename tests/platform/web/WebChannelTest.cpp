#include "platform/web/WebChannel.h"

#include "platform/web/EventLoop.h"
#include "platform/web/SharedFrames.h"

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
            std::move(ends->first), [](const WebMessage&) {}, [] {});
        far.emplace(
            std::move(ends->second), [this](WebMessage message) { heard.push_back(std::move(message)); },
            [this] { isClosed = true; });
    }

    std::vector<WebMessage> heard;
    bool isClosed = false;
    int raw = -1;
    std::optional<WebChannel> near;
    std::optional<WebChannel> far;
};

TEST_F(WebChannelTest, send_bringsEveryPartOfAMessage)
{
    WebMessage sent;
    sent.kind = WebMessage::Kind::Frame;
    sent.view = 7;
    sent.generation = 3;
    sent.slot = 1;
    sent.size = {640, 480};
    sent.zoom = 1.5F;
    sent.damage = {1, 2, 3, 4};
    sent.flag = true;
    sent.text = "words";
    ASSERT_TRUE(near->send(sent));
    ASSERT_TRUE(turnUntil([&] { return !heard.empty(); }));
    const WebMessage& got = heard.front();
    EXPECT_EQ(got.kind, sent.kind);
    EXPECT_EQ(got.view, sent.view);
    EXPECT_EQ(got.generation, sent.generation);
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
    sent.memory = frames->share();
    ASSERT_TRUE(near->send(sent));
    ASSERT_TRUE(turnUntil([&] { return !heard.empty(); }));
    auto adopted = SharedFrames::adopt(std::move(heard.front().memory), {4, 2});
    ASSERT_TRUE(adopted);
    adopted->writable(1).fill(Qt::red);
    EXPECT_EQ(frames->pixels(1)[2], 255);
}

TEST_F(WebChannelTest, send_refusesATextThatIsTooLong)
{
    WebMessage sent;
    sent.text = QByteArray(WebChannel::longestText + 1, 'x');
    EXPECT_FALSE(near->send(sent));
}

TEST_F(WebChannelTest, send_failsInsteadOfWaiting_whenNobodyListens)
{
    WebMessage sent;
    sent.text = QByteArray(WebChannel::longestText, 'x');
    bool isSent = true;
    for (int i = 0; i < 1000 && isSent; ++i)
        isSent = near->send(sent);
    EXPECT_FALSE(isSent);
}

TEST_F(WebChannelTest, whatIsNoMessage_isDropped)
{
    ASSERT_EQ(::send(raw, "xyz", 3, 0), 3);
    ASSERT_TRUE(near->send({}));
    ASSERT_TRUE(turnUntil([&] { return !heard.empty(); }));
    EXPECT_EQ(heard.size(), 1U);
    EXPECT_FALSE(isClosed);
}

TEST_F(WebChannelTest, theOtherEnd_isTold_whenOneIsGone)
{
    near.reset();
    EXPECT_TRUE(turnUntil([&] { return isClosed; }));
}

} // namespace

} // namespace kestro
