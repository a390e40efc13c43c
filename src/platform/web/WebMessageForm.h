#pragma once

#include "platform/base/Result.h"
#include "platform/web/WebMessage.h"

#include <array>

namespace kestro {

// How messages look on the line between the saver and its web helper. Both ends are of one build on one
// machine, yet neither takes what comes on trust. Any thread.

/// The fixed part of a message, before its text.
using WebMessageHead = std::array<char, 64>;

/// Who said what came.
enum class WebSpeaker { Saver, Helper };

[[nodiscard]] WebMessageHead headOf(const WebMessage& message);

/// The message that the bytes are, without its memory; an error for what that speaker never says: words of
/// the other, sizes, numbers and texts out of their bounds, and bytes of another length.
[[nodiscard]] Result<WebMessage> messageOf(QByteArrayView bytes, WebSpeaker speaker);

/// Whether messages of that kind come with memory.
[[nodiscard]] bool carriesMemory(WebMessage::Kind kind);

} // namespace kestro
