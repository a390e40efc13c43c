#include "platform/session/PowerManagementInhibitors.h"

namespace kestro {

PowerManagementInhibitors::PowerManagementInhibitors(const QDBusConnection& sessionBus)
    : m_service(sessionBus, {QStringLiteral("org.freedesktop.PowerManagement"),
                             QStringLiteral("/org/freedesktop/PowerManagement/Inhibit"),
                             QStringLiteral("org.freedesktop.PowerManagement.Inhibit")})
{
    m_service.listen(QStringLiteral("HasInhibitChanged"), [this](const QDBusMessage&) { refresh(); });
    m_service.listenToOwner([this](bool) { refresh(); });
    refresh();
}

void PowerManagementInhibitors::look(Found found)
{
    const QDeadlineTimer until(patience);
    const auto tellNames = [found](const BusObject::Answer& answer) {
        const QStringList names = answer ? answer->value(0).toStringList() : QStringList();
        const QString who = plainWords(names.mid(0, 8).join(QStringLiteral(", ")));
        found({{HindranceKind::Inhibited, who, {}}});
    };
    m_service.call(
        QStringLiteral("HasInhibit"), {},
        [this, found, tellNames, until](const BusObject::Answer& answer) {
            if (!answer || !answer->value(0).toBool()) return found({});
            m_service.call(QStringLiteral("GetInhibitors"), {}, tellNames, until);
        },
        until);
}

} // namespace kestro
