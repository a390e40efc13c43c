#include "platform/session/ScreenSaverObject.h"

#include "platform/session/ScreenSaverService.h"

#include <QDBusMessage>

namespace kestro {

ScreenSaverObject::ScreenSaverObject(ScreenSaverService& service)
    : m_service(service)
{
}

uint ScreenSaverObject::Inhibit(const QString& application, const QString& reason)
{
    const auto cookie = m_service.inhibit(message().service(), application, reason);
    if (!cookie) sendErrorReply(QDBusError::LimitsExceeded, QStringLiteral("too many inhibitions"));
    return cookie.value_or(0);
}

void ScreenSaverObject::UnInhibit(uint cookie)
{
    if (!m_service.giveBack(message().service(), cookie))
        sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("no inhibition of yours"));
}

bool ScreenSaverObject::GetActive()
{
    return m_service.isActive();
}

bool ScreenSaverObject::SetActive(bool active)
{
    return m_service.show(active);
}

void ScreenSaverObject::Lock()
{
    m_service.lock();
}

void ScreenSaverObject::SimulateUserActivity()
{
    m_service.simulateActivity();
}

uint ScreenSaverObject::GetSessionIdleTime()
{
    return m_service.idleSeconds();
}

uint ScreenSaverObject::GetActiveTime()
{
    return m_service.activeSeconds();
}

} // namespace kestro
