#include "host/preferences/IdleWords.h"

#include <QStringList>

namespace kestro {

QString IdleWords::of(const IdleStatus& status)
{
    if (!status.rival.isEmpty()) return tr("Now: %1 looks after this session.").arg(status.rival);
    if (status.state == IdleMachine::State::Showing) return tr("Now: the saver is shown.");
    QStringList reasons;
    for (const Hindrance& hindrance : status.hindrances)
        reasons.append(of(hindrance));
    if (!reasons.isEmpty()) return tr("Now kept from starting: %1.").arg(reasons.join(QStringLiteral("; ")));
    if (status.crashes > 0) return tr("The saver ended unexpectedly the last time.");
    return tr("Now: waiting until you are away.");
}

QString IdleWords::of(const Hindrance& hindrance)
{
    QString words = of(hindrance.kind);
    if (!hindrance.who.isEmpty())
        words = tr("%1 (%2)", "what keeps the saver from starting, and who").arg(words, hindrance.who);
    if (!hindrance.why.isEmpty()) words += QStringLiteral(": ") + hindrance.why;
    return words;
}

QString IdleWords::of(HindranceKind kind)
{
    switch (kind) {
    case HindranceKind::Inhibited:
        return tr("a program asks for it");
    case HindranceKind::Locked:
        return tr("the session is locked");
    case HindranceKind::Asleep:
        return tr("the machine goes to sleep");
    case HindranceKind::LidClosed:
        return tr("the lid is closed");
    case HindranceKind::Battery:
        return tr("power is to be saved");
    case HindranceKind::Microphone:
        return tr("the microphone is in use");
    case HindranceKind::Camera:
        return tr("the camera is in use");
    case HindranceKind::GamePad:
        return tr("a game pad is in use");
    case HindranceKind::FullScreen:
        return tr("a full-screen window plays sound");
    }
    return {};
}

} // namespace kestro
