#include "platform/session/LogindInhibitors.h"

#include "platform/base/Bounds.h"

#include <QDBusArgument>

namespace kestro {

namespace {

const QString idle = QStringLiteral("idle");

/// A list of logind's: "idle:sleep:shutdown".
bool namesIdle(const QString& what)
{
    return what.split(u':').contains(idle);
}

} // namespace

LogindInhibitors::LogindInhibitors(const QDBusConnection& systemBus, unsigned user)
    : m_logind(systemBus,
               {QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
                QStringLiteral("org.freedesktop.login1.Manager")})
    , m_user(user)
{
    m_logind.listenToProperties([this] { refresh(); });
    m_logind.listenToOwner([this](bool) { refresh(); });
    refresh();
}

void LogindInhibitors::look(Found found)
{
    const QDeadlineTimer until(patience);
    const auto tell = [this, found](const BusObject::Answer& answer) {
        found(answer ? ofUser(answer->value(0)) : QList<Hindrance>());
    };
    m_logind.property(
        QStringLiteral("BlockInhibited"),
        [this, found, tell, until](const std::optional<QVariant>& what) {
            if (!what || !namesIdle(what->toString())) return found({});
            m_logind.call(QStringLiteral("ListInhibitors"), {}, tell, until);
        },
        until);
}

QList<Hindrance> LogindInhibitors::ofUser(const QVariant& list) const
{
    QList<Hindrance> all;
    if (!list.canConvert<QDBusArgument>()) return all;
    const auto argument = list.value<QDBusArgument>();
    if (argument.currentSignature() != QStringLiteral("a(ssssuu)")) return all;
    argument.beginArray();
    while (!argument.atEnd() && all.size() < Bounds::inhibitorsAsked) {
        QString what;
        QString who;
        QString why;
        QString mode;
        uint user = 0;
        uint process = 0;
        argument.beginStructure();
        argument >> what >> who >> why >> mode >> user >> process;
        argument.endStructure();
        if (user == m_user && namesIdle(what) && mode == QStringLiteral("block"))
            all.append({HindranceKind::Inhibited, plainWords(who), plainWords(why)});
    }
    argument.endArray();
    return all;
}

} // namespace kestro
