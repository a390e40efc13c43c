#pragma once

#include "platform/web/WebMessageForm.h"

#include <QSocketNotifier>

#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace kestro {

/// One end of the line between the saver's process and its web helper: a socket that keeps messages apart and
/// hands over memory. Neither end ever waits for the other. What comes in that the other end never says is
/// dropped, who goes on with that is taken for gone, and every descriptor beyond what a message may carry is
/// closed. Few messages are taken before the event loop goes on. Main thread of either process.
class WebChannel final {
public:
    /// Takes over the end that hears `speaker`. `onMessage` is called from the event loop for each message,
    /// `onClosed` once when the other end is gone; a channel may be destroyed in either.
    WebChannel(Descriptor socket, WebSpeaker speaker, std::function<void(WebMessage)> onMessage,
               std::function<void()> onClosed);

    /// Both ends of a new line, closed in programs that are started; none when the system has no more.
    [[nodiscard]] static std::optional<std::pair<Descriptor, Descriptor>> makePair();

    /// False when the other end is gone or has not listened for very long; then nothing was sent.
    bool send(const WebMessage& message);

private:
    enum class Receipt { Message, Refused, Nothing, Closed };

    void readAll();
    [[nodiscard]] Receipt receive(std::optional<WebMessage>& message);

    Descriptor m_socket;
    const WebSpeaker m_speaker;
    std::function<void(WebMessage)> m_onMessage;
    std::function<void()> m_onClosed;
    std::unique_ptr<QSocketNotifier> m_notifier;
    int m_refused = 0;                                              ///< of what came
    std::shared_ptr<bool> m_isAlive = std::make_shared<bool>(true); ///< false once destroyed

public:
    ~WebChannel();
    WebChannel(const WebChannel&) = delete;
    WebChannel& operator=(const WebChannel&) = delete;
};

} // namespace kestro
