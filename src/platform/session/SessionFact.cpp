#include "platform/session/SessionFact.h"

#include "platform/base/Bounds.h"
#include "platform/base/OneLine.h"

namespace kestro {

QString nameOf(HindranceKind kind)
{
    switch (kind) {
    case HindranceKind::Inhibited:
        return QStringLiteral("inhibited");
    case HindranceKind::Locked:
        return QStringLiteral("locked");
    case HindranceKind::Asleep:
        return QStringLiteral("asleep");
    case HindranceKind::LidClosed:
        return QStringLiteral("lidClosed");
    case HindranceKind::Battery:
        return QStringLiteral("battery");
    case HindranceKind::Microphone:
        return QStringLiteral("microphone");
    case HindranceKind::Camera:
        return QStringLiteral("camera");
    case HindranceKind::GamePad:
        return QStringLiteral("gamePad");
    case HindranceKind::FullScreen:
        return QStringLiteral("fullScreen");
    }
    return {};
}

QString plainWords(const QString& words)
{
    const QString plain = onOneLine(words.left(2 * Bounds::inhibitorCharacters)).simplified();
    if (plain.size() <= Bounds::inhibitorCharacters) return plain;
    return plain.first(Bounds::inhibitorCharacters - 1) + QChar(u'…');
}

} // namespace kestro
