#include "platform/session/SleepFact.h"

namespace kestro {

SleepFact::SleepFact(const QDBusConnection& systemBus)
    : m_logind(systemBus,
               {QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
                QStringLiteral("org.freedesktop.login1.Manager")})
{
    m_bound.setSingleShot(true);
    m_bound.setInterval(patience);
    m_bound.callOnTimeout([this] { release(); });
    m_logind.listen(QStringLiteral("PrepareForSleep"),
                    [this](const QDBusMessage& message) { told(message.arguments().value(0).toBool()); });
    m_logind.listenToOwner([this](bool isThere) {
        m_delay = {};
        if (isThere) takeDelay();
        told(false);
    });
    takeDelay();
}

void SleepFact::ask(std::function<void()> onAnswer)
{
    onAnswer();
}

void SleepFact::told(bool isAboutToSleep)
{
    const bool wasAsleep = std::exchange(m_isAsleep, isAboutToSleep);
    if (isAboutToSleep)
        m_bound.start();
    else if (wasAsleep)
        takeDelay();
    keep(isAboutToSleep ? QList<Hindrance>{{HindranceKind::Asleep, {}, {}}} : QList<Hindrance>());
}

void SleepFact::takeDelay()
{
    const QVariantList what = {QStringLiteral("sleep"), QStringLiteral("Kestro"),
                               QStringLiteral("The screen saver ends first"), QStringLiteral("delay")};
    m_logind.call(QStringLiteral("Inhibit"), what, [this](const BusObject::Answer& answer) {
        if (answer && !m_isAsleep) m_delay = qvariant_cast<QDBusUnixFileDescriptor>(answer->value(0));
    });
}

void SleepFact::release()
{
    m_bound.stop();
    if (m_isAsleep) m_delay = {};
}

} // namespace kestro
