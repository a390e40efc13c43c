#include "platform/web/WebChannel.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <sys/socket.h>

namespace kestro {

namespace {

/// What goes before the text of a message on the line. Both ends are of one build on one machine.
struct Head {
    quint32 kind;
    quint32 view;
    quint32 generation;
    qint32 slot;
    qint32 width, height;
    float zoom;
    qint32 left, top, damageWidth, damageHeight;
    quint32 flag;
};

Head headOf(const WebMessage& message)
{
    const QRect& damage = message.damage;
    return {static_cast<quint32>(message.kind),
            message.view,
            message.generation,
            message.slot,
            message.size.width(),
            message.size.height(),
            message.zoom,
            damage.left(),
            damage.top(),
            damage.width(),
            damage.height(),
            message.flag ? 1U : 0U};
}

WebMessage messageOf(const Head& head, const char* text, qsizetype length)
{
    WebMessage message;
    message.kind = static_cast<WebMessage::Kind>(head.kind);
    message.view = head.view;
    message.generation = head.generation;
    message.slot = head.slot;
    message.size = {head.width, head.height};
    message.zoom = head.zoom;
    message.damage = {head.left, head.top, head.damageWidth, head.damageHeight};
    message.flag = head.flag != 0;
    message.text = QByteArray(text, length);
    return message;
}

/// Room for one descriptor beside a message.
struct alignas(cmsghdr) Attachment {
    std::array<char, CMSG_SPACE(sizeof(int))> bytes{};
};

void attach(msghdr& parts, Attachment& room, int descriptor)
{
    parts.msg_control = room.bytes.data();
    parts.msg_controllen = room.bytes.size();
    cmsghdr* const header = CMSG_FIRSTHDR(&parts);
    header->cmsg_level = SOL_SOCKET;
    header->cmsg_type = SCM_RIGHTS;
    header->cmsg_len = CMSG_LEN(sizeof(int));
    std::memcpy(CMSG_DATA(header), &descriptor, sizeof(int));
}

Descriptor attached(msghdr& parts)
{
    const cmsghdr* const header = CMSG_FIRSTHDR(&parts);
    if (!header || header->cmsg_type != SCM_RIGHTS) return {};
    int number = -1;
    std::memcpy(&number, CMSG_DATA(header), sizeof(int));
    return Descriptor(number);
}

} // namespace

WebChannel::WebChannel(Descriptor socket, std::function<void(WebMessage)> onMessage,
                       std::function<void()> onClosed)
    : m_socket(std::move(socket))
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
    if (message.text.size() > longestText) return false;
    Head head = headOf(message);
    std::array<iovec, 2> pieces{iovec{&head, sizeof head}, iovec{const_cast<char*>(message.text.constData()),
                                                                 static_cast<size_t>(message.text.size())}};
    msghdr parts{};
    parts.msg_iov = pieces.data();
    parts.msg_iovlen = pieces.size();
    Attachment room;
    if (message.memory.isOpen()) attach(parts, room, message.memory.number());
    ssize_t sent = -1;
    do
        sent = sendmsg(m_socket.number(), &parts, MSG_DONTWAIT | MSG_NOSIGNAL);
    while (sent < 0 && errno == EINTR);
    return sent >= 0;
}

WebChannel::Receipt WebChannel::receive(std::optional<WebMessage>& message)
{
    Head head{};
    std::array<char, longestText> text; // NOLINT(cppcoreguidelines-pro-type-member-init): filled below
    std::array<iovec, 2> pieces{iovec{&head, sizeof head}, iovec{text.data(), text.size()}};
    Attachment room;
    msghdr parts{};
    parts.msg_iov = pieces.data();
    parts.msg_iovlen = pieces.size();
    parts.msg_control = room.bytes.data();
    parts.msg_controllen = room.bytes.size();
    const ssize_t length = recvmsg(m_socket.number(), &parts, MSG_DONTWAIT | MSG_CMSG_CLOEXEC);
    if (length < 0) return errno == EAGAIN || errno == EINTR ? Receipt::Nothing : Receipt::Closed;
    if (length == 0) return Receipt::Closed;
    Descriptor memory = attached(parts);
    if (length < static_cast<ssize_t>(sizeof head)) return Receipt::Message;
    message = messageOf(head, text.data(), length - static_cast<qsizetype>(sizeof head));
    message->memory = std::move(memory);
    return Receipt::Message;
}

void WebChannel::readAll()
{
    const auto isAlive = m_isAlive;
    while (*isAlive) {
        std::optional<WebMessage> message;
        switch (receive(message)) {
        case Receipt::Nothing:
            return;
        case Receipt::Closed:
            m_notifier->setEnabled(false);
            m_onClosed();
            return;
        case Receipt::Message:
            if (message) m_onMessage(std::move(*message));
        }
    }
}

} // namespace kestro
