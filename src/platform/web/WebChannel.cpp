#include "platform/web/WebChannel.h"

#include "platform/base/Bounds.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <sys/socket.h>

namespace kestro {

namespace {

/// As many descriptors as the system lets come with one message: what finds no room is lost, and what finds
/// some must be closed.
constexpr size_t mostDescriptors = 253;

template <size_t count>
struct alignas(cmsghdr) Attachment {
    std::array<char, CMSG_SPACE(count * sizeof(int))> bytes{};

    void joinTo(msghdr& parts)
    {
        parts.msg_control = bytes.data();
        parts.msg_controllen = bytes.size();
    }
};

void attach(msghdr& parts, Attachment<1>& room, int descriptor)
{
    room.joinTo(parts);
    cmsghdr* const header = CMSG_FIRSTHDR(&parts);
    header->cmsg_level = SOL_SOCKET;
    header->cmsg_type = SCM_RIGHTS;
    header->cmsg_len = CMSG_LEN(sizeof(int));
    std::memcpy(CMSG_DATA(header), &descriptor, sizeof(int));
}

/// The first descriptor that came; all others are closed.
Descriptor attached(msghdr& parts)
{
    Descriptor first;
    for (cmsghdr* header = CMSG_FIRSTHDR(&parts); header; header = CMSG_NXTHDR(&parts, header)) {
        if (header->cmsg_level != SOL_SOCKET || header->cmsg_type != SCM_RIGHTS) continue;
        const size_t count = (header->cmsg_len - CMSG_LEN(0)) / sizeof(int);
        for (size_t i = 0; i < count; ++i) {
            int number = -1;
            std::memcpy(&number, CMSG_DATA(header) + i * sizeof(int), sizeof(int));
            Descriptor each(number);
            if (!first.isOpen()) first = std::move(each);
        }
    }
    return first;
}

} // namespace

WebChannel::WebChannel(Descriptor socket, WebSpeaker speaker, std::function<void(WebMessage)> onMessage,
                       std::function<void()> onClosed)
    : m_socket(std::move(socket))
    , m_speaker(speaker)
    , m_onMessage(std::move(onMessage))
    , m_onClosed(std::move(onClosed))
    , m_notifier(std::make_unique<QSocketNotifier>(m_socket.number(), QSocketNotifier::Read))
{
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { readAll(); });
}

WebChannel::~WebChannel()
{
    *m_isAlive = false;
    // It may be what calls us.
    m_notifier->setEnabled(false);
    m_notifier.release()->deleteLater();
}

std::optional<std::pair<Descriptor, Descriptor>> WebChannel::makePair()
{
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()) != 0) return {};
    return std::pair{Descriptor(ends[0]), Descriptor(ends[1])};
}

bool WebChannel::send(const WebMessage& message)
{
    if (message.text.size() > Bounds::webTextBytes) return false;
    WebMessageHead head = headOf(message);
    std::array<iovec, 2> pieces{
        iovec{head.data(), head.size()},
        iovec{const_cast<char*>(message.text.constData()), static_cast<size_t>(message.text.size())}};
    msghdr parts{};
    parts.msg_iov = pieces.data();
    parts.msg_iovlen = pieces.size();
    Attachment<1> room;
    if (message.memory.isOpen()) attach(parts, room, message.memory.number());
    ssize_t sent = -1;
    do
        sent = sendmsg(m_socket.number(), &parts, MSG_DONTWAIT | MSG_NOSIGNAL);
    while (sent < 0 && errno == EINTR);
    return sent >= 0;
}

WebChannel::Receipt WebChannel::receive(std::optional<WebMessage>& message)
{
    // One byte more than there may be, which tells what was cut off.
    std::array<char, sizeof(WebMessageHead) + Bounds::webTextBytes + 1>
        bytes; // NOLINT(cppcoreguidelines-pro-type-member-init): filled below
    iovec piece{bytes.data(), bytes.size()};
    Attachment<mostDescriptors> room;
    msghdr parts{};
    parts.msg_iov = &piece;
    parts.msg_iovlen = 1;
    room.joinTo(parts);
    const ssize_t length = recvmsg(m_socket.number(), &parts, MSG_DONTWAIT | MSG_CMSG_CLOEXEC);
    if (length < 0) return errno == EAGAIN || errno == EINTR ? Receipt::Nothing : Receipt::Closed;
    Descriptor memory = attached(parts);
    if (length == 0) return Receipt::Closed;
    auto come = messageOf(QByteArrayView(bytes.data(), length), m_speaker);
    if (!come) return Receipt::Refused;
    message = std::move(come.value());
    if (carriesMemory(message->kind)) message->memory = std::move(memory);
    return Receipt::Message;
}

void WebChannel::readAll()
{
    const auto isAlive = m_isAlive;
    // The notifier comes back for what is left.
    for (int count = 0; *isAlive && count < Bounds::webMessagesATurn; ++count) {
        std::optional<WebMessage> message;
        switch (receive(message)) {
        case Receipt::Nothing:
            return;
        case Receipt::Refused:
            if (++m_refused < Bounds::webMessagesRefused) break;
            [[fallthrough]];
        case Receipt::Closed:
            m_notifier->setEnabled(false);
            m_onClosed();
            return;
        case Receipt::Message:
            m_onMessage(std::move(*message));
        }
    }
}

} // namespace kestro
