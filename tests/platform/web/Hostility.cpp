#include "platform/web/Hostility.h"

#include "platform/web/WebMessageForm.h"

#include <array>
#include <cstring>
#include <fcntl.h>
#include <functional>
#include <limits>
#include <map>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/types.h>
#include <unistd.h>
#include <vector>

namespace kestro {

namespace {

void sendBytes(int line, const QByteArray& bytes, int flags = 0)
{
    ::send(line, bytes.constData(), static_cast<size_t>(bytes.size()), MSG_NOSIGNAL | flags);
}

QByteArray bytesOf(const WebMessage& message)
{
    const WebMessageHead head = headOf(message);
    return QByteArray(head.data(), head.size()) + message.text;
}

WebMessage word(WebMessage::Kind kind, quint32 view)
{
    WebMessage message;
    message.kind = kind;
    message.view = view;
    return message;
}

// Ends with the line: the saver closes it.
void flood(int line, quint32 view)
{
    WebMessage note = word(WebMessage::Kind::Note, view);
    note.text = QByteArray(150, 'x') + "\n\x1b[31m";
    const QByteArray bytes = bytesOf(note);
    while (::send(line, bytes.constData(), static_cast<size_t>(bytes.size()), MSG_NOSIGNAL) >= 0) {
    }
}

void lie(int line, quint32 view)
{
    constexpr int most = std::numeric_limits<int>::max();
    constexpr int least = std::numeric_limits<int>::min();
    for (const int number : {most, least, -1, 2, 8193}) {
        WebMessage frame = word(WebMessage::Kind::Frame, view);
        frame.generation = 1;
        frame.slot = number;
        sendBytes(line, bytesOf(frame));
        frame.slot = 0;
        frame.size = {number, number};
        frame.damage.setCoords(number, number, number, number);
        frame.length = std::numeric_limits<qint64>::max();
        sendBytes(line, bytesOf(frame));
    }
    for (const quint32 generation : {0U, 77U})
        for (const quint32 page : {0U, view, view + 1000}) {
            WebMessage frame = word(WebMessage::Kind::Frame, page);
            frame.generation = generation;
            sendBytes(line, bytesOf(frame));
        }
    for (const auto kind : {WebMessage::Kind::Ping, WebMessage::Kind::Resize, WebMessage::Kind::Fetched,
                            static_cast<WebMessage::Kind>(4711)})
        sendBytes(line, bytesOf(word(kind, view)));
}

void sendRubble(int line, quint32 view)
{
    for (const int length : {1, 3, 63, 65, 200, 16500, 100000})
        sendBytes(line, QByteArray(length, '\xff'));
    WebMessage note = word(WebMessage::Kind::Note, view);
    note.text = QByteArray(16384, 'n');
    sendBytes(line, bytesOf(note));
}

// Ends with the line, as above.
void sendRubbleWithoutEnd(int line)
{
    while (::send(line, "rubble", 6, MSG_NOSIGNAL) >= 0) {
    }
}

void sendDescriptors(int line, quint32 view)
{
    constexpr size_t count = 200;
    const QByteArray bytes = bytesOf(word(WebMessage::Kind::Pong, view));
    std::vector<int> numbers(count, STDIN_FILENO);
    std::vector<char> room(CMSG_SPACE(count * sizeof(int)));
    for (int turn = 0; turn < 8; ++turn) {
        iovec piece{const_cast<char*>(bytes.constData()), static_cast<size_t>(bytes.size())};
        msghdr parts{};
        parts.msg_iov = &piece;
        parts.msg_iovlen = 1;
        parts.msg_control = room.data();
        parts.msg_controllen = room.size();
        cmsghdr* const header = CMSG_FIRSTHDR(&parts);
        header->cmsg_level = SOL_SOCKET;
        header->cmsg_type = SCM_RIGHTS;
        header->cmsg_len = CMSG_LEN(count * sizeof(int));
        std::memcpy(CMSG_DATA(header), numbers.data(), count * sizeof(int));
        sendmsg(line, &parts, MSG_NOSIGNAL);
    }
}

void eat()
{
    constexpr size_t bytes = 256UL * 1024 * 1024;
    auto* const memory = static_cast<volatile char*>(std::malloc(bytes));
    for (size_t at = 0; memory && at < bytes; at += 1024)
        memory[at] = 1;
}

// Nothing of it is ever mapped.
void hoard()
{
    constexpr off_t bytes = 256L * 1024 * 1024;
    const int memory = memfd_create("hoard", MFD_CLOEXEC);
    if (memory >= 0 && posix_fallocate(memory, 0, bytes) != 0) close(memory);
}

void breed()
{
    for (int count = 0; count < 40; ++count)
        if (fork() == 0)
            for (;;)
                pause();
}

} // namespace

bool beHostile(const QString& address, int line, quint32 view)
{
    const std::map<QString, std::function<void()>> deeds{
        {QStringLiteral("flood:"), [&] { flood(line, view); }},
        {QStringLiteral("lie:"), [&] { lie(line, view); }},
        {QStringLiteral("rubble:"), [&] { sendRubble(line, view); }},
        {QStringLiteral("endless:"), [&] { sendRubbleWithoutEnd(line); }},
        {QStringLiteral("descriptors:"), [&] { sendDescriptors(line, view); }},
        {QStringLiteral("eat:"), eat},
        {QStringLiteral("hoard:"), hoard},
        {QStringLiteral("breed:"), breed}};
    const auto deed = deeds.find(address);
    if (deed == deeds.end()) return false;
    deed->second();
    return true;
}

} // namespace kestro
