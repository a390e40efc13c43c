#include "idle/IdleControl.h"

#include "idle/IdleAddress.h"
#include "platform/base/PostTo.h"
#include "platform/session/BusObject.h"

#include <QJsonDocument>

#include <utility>

namespace kestro {

namespace {

using IdleAddress::busName;
using IdleAddress::objectPath;

} // namespace

IdleControl::IdleControl(QDBusConnection bus, Handlers handlers)
    : m_bus(std::move(bus))
    , m_handlers(std::move(handlers))
{
}

IdleControl::~IdleControl()
{
    m_bus.unregisterObject(objectPath);
    releaseName(m_bus, busName);
}

bool IdleControl::begin()
{
    return m_bus.registerService(busName) &&
           m_bus.registerObject(objectPath, this,
                                QDBusConnection::ExportScriptableSlots |
                                    QDBusConnection::ExportScriptableSignals);
}

void IdleControl::tellChange()
{
    if (std::exchange(m_isToTell, true)) return;
    postTo(*this, [this] {
        m_isToTell = false;
        const QString status = Status();
        if (std::exchange(m_told, status) != status) Q_EMIT Changed(status);
    });
}

QString IdleControl::Status() const
{
    return QString::fromUtf8(QJsonDocument(m_handlers.status().json()).toJson(QJsonDocument::Compact));
}

void IdleControl::Show()
{
    m_handlers.show();
}

void IdleControl::Reload()
{
    m_handlers.reload();
}

void IdleControl::Quit()
{
    m_handlers.quit();
}

} // namespace kestro
