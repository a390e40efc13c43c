#include "platform/web/WebMessageForm.h"

#include "platform/base/Bounds.h"

#include <cmath>
#include <cstring>

namespace kestro {

namespace {

using Kind = WebMessage::Kind;

constexpr int slotCount = 2;
constexpr float mostZoom = 64;

struct Head {
    quint32 kind;
    quint32 view;
    quint32 generation;
    quint32 request;
    qint32 slot;
    qint32 width, height;
    float zoom;
    qint32 left, top, damageWidth, damageHeight;
    qint64 length;
    quint32 flag;
    quint32 unused;
};
static_assert(sizeof(Head) == sizeof(WebMessageHead));

bool isWithin(qint32 value, qint32 least, qint32 most)
{
    return value >= least && value <= most;
}

bool isSaversWord(Kind kind)
{
    return kind >= Kind::Ping && kind <= Kind::Stop;
}

bool isHelpersWord(Kind kind)
{
    return kind >= Kind::Hello && kind <= Kind::Fetch;
}

/// Also that nothing can be reckoned with them that a number does not hold.
bool areNumbersInBounds(const Head& head)
{
    constexpr qint32 side = Bounds::webPictureSide;
    return isWithin(head.slot, 0, slotCount - 1) && isWithin(head.width, 0, side) &&
           isWithin(head.height, 0, side) && std::isfinite(head.zoom) && head.zoom > 0 &&
           head.zoom <= mostZoom && isWithin(head.left, 0, side) && isWithin(head.top, 0, side) &&
           isWithin(head.damageWidth, 0, side) && isWithin(head.damageHeight, 0, side) && head.length >= 0 &&
           head.length <= Bounds::webRequestBytes && head.flag <= 1 && head.unused == 0;
}

bool isTextInBounds(Kind kind, qsizetype length)
{
    switch (kind) {
    case Kind::LoadMovie:
    case Kind::LoadPage:
    case Kind::Fetch:
    case Kind::Fetched:
        return length <= Bounds::webTextBytes;
    case Kind::Note:
        return length <= Bounds::webNoteBytes;
    default:
        return length == 0;
    }
}

} // namespace

WebMessageHead headOf(const WebMessage& message)
{
    const QRect& damage = message.damage;
    const Head head{static_cast<quint32>(message.kind),
                    message.view,
                    message.generation,
                    message.request,
                    message.slot,
                    message.size.width(),
                    message.size.height(),
                    message.zoom,
                    damage.left(),
                    damage.top(),
                    damage.width(),
                    damage.height(),
                    message.length,
                    message.flag ? 1U : 0U,
                    0};
    WebMessageHead bytes;
    std::memcpy(bytes.data(), &head, sizeof head);
    return bytes;
}

Result<WebMessage> messageOf(QByteArrayView bytes, WebSpeaker speaker)
{
    Head head{};
    if (bytes.size() < static_cast<qsizetype>(sizeof head)) return Error{QStringLiteral("cut short")};
    std::memcpy(&head, bytes.data(), sizeof head);
    const auto kind = static_cast<Kind>(head.kind);
    if (!(speaker == WebSpeaker::Saver ? isSaversWord(kind) : isHelpersWord(kind)))
        return Error{QStringLiteral("not a word of that end")};
    if (!areNumbersInBounds(head)) return Error{QStringLiteral("a number out of bounds")};
    const QByteArrayView text = bytes.sliced(sizeof head);
    if (!isTextInBounds(kind, text.size())) return Error{QStringLiteral("a text out of bounds")};
    WebMessage message;
    message.kind = kind;
    message.view = head.view;
    message.generation = head.generation;
    message.request = head.request;
    message.slot = head.slot;
    message.size = {head.width, head.height};
    message.zoom = head.zoom;
    message.damage = {head.left, head.top, head.damageWidth, head.damageHeight};
    message.length = head.length;
    message.flag = head.flag != 0;
    message.text = text.toByteArray();
    return message;
}

bool carriesMemory(WebMessage::Kind kind)
{
    return kind == Kind::Resize || kind == Kind::Fetched;
}

} // namespace kestro
