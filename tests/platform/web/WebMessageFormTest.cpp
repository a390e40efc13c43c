#include "platform/web/WebMessageForm.h"

#include "platform/base/Bounds.h"

#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <limits>

namespace kestro {

namespace {

using Kind = WebMessage::Kind;

QByteArray bytesOf(const WebMessage& message)
{
    const WebMessageHead head = headOf(message);
    return QByteArray(head.data(), head.size()) + message.text;
}

bool isTaken(const WebMessage& message, WebSpeaker speaker)
{
    return messageOf(bytesOf(message), speaker).isOk();
}

TEST(WebMessageForm, messageOf_takesEachWordFromItsSpeakerAlone)
{
    const struct {
        Kind kind;
        WebSpeaker speaker;
    } words[] = {{Kind::Ping, WebSpeaker::Saver},     {Kind::LoadMovie, WebSpeaker::Saver},
                 {Kind::LoadPage, WebSpeaker::Saver}, {Kind::Resize, WebSpeaker::Saver},
                 {Kind::Release, WebSpeaker::Saver},  {Kind::Mute, WebSpeaker::Saver},
                 {Kind::Fetched, WebSpeaker::Saver},  {Kind::Stop, WebSpeaker::Saver},
                 {Kind::Hello, WebSpeaker::Helper},   {Kind::Pong, WebSpeaker::Helper},
                 {Kind::Frame, WebSpeaker::Helper},   {Kind::Note, WebSpeaker::Helper},
                 {Kind::Fetch, WebSpeaker::Helper}};
    for (const auto& word : words) {
        WebMessage message;
        message.kind = word.kind;
        for (const auto speaker : {WebSpeaker::Saver, WebSpeaker::Helper})
            EXPECT_EQ(isTaken(message, speaker), speaker == word.speaker) << int(word.kind);
    }
}

TEST(WebMessageForm, messageOf_refusesWordsThatThereAreNoneOf)
{
    WebMessage message;
    message.kind = static_cast<Kind>(13);
    EXPECT_FALSE(isTaken(message, WebSpeaker::Saver));
    EXPECT_FALSE(isTaken(message, WebSpeaker::Helper));
}

TEST(WebMessageForm, messageOf_refusesNumbersOutOfBounds)
{
    constexpr int most = std::numeric_limits<int>::max();
    const std::function<void(WebMessage&)> spoilt[] = {
        [](WebMessage& m) { m.slot = -1; },
        [](WebMessage& m) { m.slot = 2; },
        [](WebMessage& m) { m.size.setWidth(-1); },
        [](WebMessage& m) { m.size.setHeight(Bounds::webPictureSide + 1); },
        [](WebMessage& m) { m.zoom = 0; },
        [](WebMessage& m) { m.zoom = std::numeric_limits<float>::infinity(); },
        [](WebMessage& m) { m.zoom = std::nanf(""); },
        [](WebMessage& m) {
            m.damage = {-1, 0, 1, 1};
        },
        [](WebMessage& m) {
            m.damage = {0, 0, 1, Bounds::webPictureSide + 1};
        },
        [](WebMessage& m) { m.damage.setCoords(most, 0, most, 0); },
        [](WebMessage& m) { m.length = -1; },
        [](WebMessage& m) { m.length = Bounds::webRequestBytes + 1; }};
    for (const auto& spoil : spoilt) {
        WebMessage message;
        ASSERT_TRUE(isTaken(message, WebSpeaker::Saver));
        spoil(message);
        EXPECT_FALSE(isTaken(message, WebSpeaker::Saver)) << &spoil - spoilt;
    }
}

TEST(WebMessageForm, messageOf_boundsTexts)
{
    const struct {
        Kind kind;
        WebSpeaker speaker;
        int most;
    } cases[] = {{Kind::LoadMovie, WebSpeaker::Saver, Bounds::webTextBytes},
                 {Kind::Note, WebSpeaker::Helper, Bounds::webNoteBytes},
                 {Kind::Fetch, WebSpeaker::Helper, Bounds::webTextBytes},
                 {Kind::Pong, WebSpeaker::Helper, 0}};
    for (const auto& each : cases) {
        WebMessage message;
        message.kind = each.kind;
        message.text = QByteArray(each.most, 'x');
        EXPECT_TRUE(isTaken(message, each.speaker)) << each.most;
        message.text += 'x';
        EXPECT_FALSE(isTaken(message, each.speaker)) << each.most;
    }
}

TEST(WebMessageForm, messageOf_refusesWhatIsCutShort)
{
    const QByteArray whole = bytesOf({});
    for (qsizetype length = 0; length < whole.size(); ++length)
        EXPECT_FALSE(messageOf(QByteArrayView(whole).first(length), WebSpeaker::Saver)) << length;
}

} // namespace

} // namespace kestro
