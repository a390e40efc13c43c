#pragma once

#include "Expect.h"
#include "platform/base/Bounds.h"
#include "platform/web/WebMessageForm.h"

#include <cmath>

namespace kestro {

/// Reads bytes as what `speaker` says on the line between the saver and its web helper. What is taken is in
/// its bounds, can be reckoned with, and is the same again once it is written and read.
inline void checkWebWords(QByteArrayView bytes, WebSpeaker speaker)
{
    const auto read = messageOf(bytes, speaker);
    if (!read) return;
    const WebMessage& message = read.value();
    constexpr int side = Bounds::webPictureSide;
    const auto other = speaker == WebSpeaker::Saver ? WebSpeaker::Helper : WebSpeaker::Saver;
    expect(!messageOf(bytes, other), "no word is one of both ends");
    expect(message.slot == 0 || message.slot == 1, "there are two slots");
    expect(QRect(0, 0, side, side).contains(QRect({0, 0}, message.size)) || message.size.isEmpty(),
           "a size is in its bounds");
    expect(std::isfinite(message.zoom) && message.zoom > 0, "a zoom is a number");
    expect(message.damage.isEmpty() || message.damage.right() < 2 * side, "a damage is in its bounds");
    expect(message.length >= 0 && message.length <= Bounds::webRequestBytes, "a length is in its bounds");
    expect(message.text.size() <= Bounds::webTextBytes, "a text is in its bounds");
    expect(!message.memory.isOpen(), "bytes bring no memory");
    const WebMessageHead head = headOf(message);
    expect(QByteArray(head.data(), head.size()) + message.text == bytes, "what is written is what was read");
}

} // namespace kestro
