#include "platform/session/LogindSession.h"

#include "platform/base/Log.h"

#include <QDBusArgument>
#include <QDBusObjectPath>

#include <unistd.h>

namespace kestro {

namespace {

const QString service = QStringLiteral("org.freedesktop.login1");

/// The user's property "Display": a session's name and where it stands.
QString pathOfDisplay(const std::optional<QVariant>& display)
{
    if (!display || !display->canConvert<QDBusArgument>()) return {};
    const auto argument = display->value<QDBusArgument>();
    if (argument.currentSignature() != QStringLiteral("(so)")) return {};
    QString name;
    QDBusObjectPath path;
    argument.beginStructure();
    argument >> name >> path;
    argument.endStructure();
    return path.path();
}

QString pathOf(const BusObject::Answer& answer)
{
    return answer ? qvariant_cast<QDBusObjectPath>(answer->value(0)).path() : QString();
}

} // namespace

LogindSession::LogindSession(const QDBusConnection& systemBus)
    : m_manager(systemBus, {service, QStringLiteral("/org/freedesktop/login1"),
                            QStringLiteral("org.freedesktop.login1.Manager")})
    , m_self(systemBus, {service, QStringLiteral("/org/freedesktop/login1/user/self"),
                         QStringLiteral("org.freedesktop.login1.User")})
{
}

void LogindSession::find(Answer onAnswer)
{
    if (m_session) return onAnswer(m_session.get());
    tryNext(0, QDeadlineTimer(SessionFact::patience), onAnswer);
}

void LogindSession::tryNext(int way, QDeadlineTimer until, const Answer& onAnswer)
{
    const auto next = [this, way, until, onAnswer](const QString& path) {
        if (path.size() > 1) return found(path, onAnswer);
        tryNext(way + 1, until, onAnswer);
    };
    const QString name = qEnvironmentVariable("XDG_SESSION_ID");
    if (way == 0 && name.isEmpty()) return tryNext(1, until, onAnswer);
    if (way == 0)
        m_manager.call(
            QStringLiteral("GetSession"), {name},
            [next](const BusObject::Answer& answer) { next(pathOf(answer)); }, until);
    else if (way == 1)
        m_manager.call(
            QStringLiteral("GetSessionByPID"), {static_cast<quint32>(getpid())},
            [next](const BusObject::Answer& answer) { next(pathOf(answer)); }, until);
    else if (way == 2)
        m_self.property(
            QStringLiteral("Display"),
            [next](const std::optional<QVariant>& display) { next(pathOfDisplay(display)); }, until);
    else
        onAnswer(nullptr);
}

void LogindSession::found(const QString& path, const Answer& onAnswer)
{
    if (!m_session)
        m_session = std::make_unique<BusObject>(
            m_manager.bus(), BusAddress{service, path, QStringLiteral("org.freedesktop.login1.Session")});
    onAnswer(m_session.get());
}

void LogindSession::lock()
{
    find([](BusObject* session) {
        if (!session) return logLine(QStringLiteral("Cannot lock: logind knows no session of ours."));
        session->call(QStringLiteral("Lock"), {}, [](const BusObject::Answer& answer) {
            if (!answer) logLine(QStringLiteral("Cannot lock: logind refused or was silent."));
        });
    });
}

} // namespace kestro
