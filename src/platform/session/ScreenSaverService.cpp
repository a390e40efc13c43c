#include "platform/session/ScreenSaverService.h"

#include "platform/base/Clock.h"
#include "platform/base/Log.h"
#include "platform/session/LogindSession.h"

#include <algorithm>
#include <array>

namespace kestro {

namespace {

const QString name = QStringLiteral("org.freedesktop.ScreenSaver");
const std::array paths = {QStringLiteral("/ScreenSaver"), QStringLiteral("/org/freedesktop/ScreenSaver")};

/// Of the bus's own RequestName: whoever wants the name may have it, and who had it waits in a row for it.
constexpr quint32 allowReplacement = 1;

std::uint32_t wholeSeconds(double seconds)
{
    return static_cast<std::uint32_t>(std::clamp(seconds, 0.0, 4e9));
}

} // namespace

ScreenSaverService::ScreenSaverService(const QDBusConnection& bus, LogindSession& session, Random& random,
                                       const Clock& clock)
    : m_session(session)
    , m_clock(clock)
    , m_cookies(random)
    , m_daemon(bus, {QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
                     QStringLiteral("org.freedesktop.DBus")})
    , m_object(*this)
{
    m_callers.setConnection(bus);
    m_callers.setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
    QObject::connect(&m_callers, &QDBusServiceWatcher::serviceUnregistered, &m_object,
                     [this](const QString& caller) { callerLeft(caller); });
    for (const QString& path : paths)
        QDBusConnection(bus).registerObject(
            path, &m_object, QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals);
    askForTheName();
}

ScreenSaverService::~ScreenSaverService()
{
    QDBusConnection bus = m_daemon.bus();
    for (const QString& path : paths)
        bus.unregisterObject(path);
    releaseName(bus, name);
}

void ScreenSaverService::askForTheName()
{
    const auto isThisOne = [](const QDBusMessage& told) { return told.arguments().value(0) == name; };
    m_daemon.listen(QStringLiteral("NameAcquired"), [this, isThisOne](const QDBusMessage& told) {
        if (isThisOne(told)) setOwner(true);
    });
    m_daemon.listen(QStringLiteral("NameLost"), [this, isThisOne](const QDBusMessage& told) {
        if (isThisOne(told)) setOwner(false);
    });
    m_daemon.call(QStringLiteral("RequestName"), {name, allowReplacement}, [](const BusObject::Answer&) {});
}

/// What was asked of us cannot be given back to us once the name is another's: its owner is told instead.
void ScreenSaverService::setOwner(bool isOwner)
{
    if (std::exchange(m_isOwner, isOwner) == isOwner) return;
    logLine(isOwner ? QStringLiteral("The name %1 is ours.").arg(name)
                    : QStringLiteral("The name %1 is another program's.").arg(name));
    if (isOwner) return;
    m_cookies.clear();
    m_callers.setWatchedServices({});
    keep({});
}

void ScreenSaverService::setActive(bool isActive)
{
    if (isActive == m_activeSince.has_value()) return;
    m_activeSince = isActive ? std::optional(m_clock.now()) : std::nullopt;
    Q_EMIT m_object.ActiveChanged(isActive);
}

void ScreenSaverService::ask(std::function<void()> onAnswer)
{
    onAnswer();
}

std::optional<std::uint32_t> ScreenSaverService::inhibit(const QString& caller, const QString& application,
                                                         const QString& reason)
{
    const bool isNew = !m_cookies.has(caller);
    const auto cookie = m_cookies.add(caller, application, reason);
    if (cookie && isNew) watch(caller);
    keep(m_cookies.hindrances());
    return cookie;
}

/// A caller that left before it was watched would be watched for ever: so whether it is there is asked after.
void ScreenSaverService::watch(const QString& caller)
{
    m_callers.addWatchedService(caller);
    m_daemon.call(QStringLiteral("NameHasOwner"), {caller}, [this, caller](const BusObject::Answer& answer) {
        if (answer && !answer->value(0).toBool()) callerLeft(caller);
    });
}

bool ScreenSaverService::giveBack(const QString& caller, std::uint32_t cookie)
{
    if (!m_cookies.remove(caller, cookie)) return false;
    if (!m_cookies.has(caller)) m_callers.removeWatchedService(caller);
    keep(m_cookies.hindrances());
    return true;
}

void ScreenSaverService::callerLeft(const QString& caller)
{
    m_cookies.removeAllOf(caller);
    m_callers.removeWatchedService(caller);
    keep(m_cookies.hindrances());
}

bool ScreenSaverService::show(bool isShown)
{
    if (!m_handlers.onShow) return false;
    m_handlers.onShow(isShown);
    return true;
}

void ScreenSaverService::lock()
{
    m_session.lock();
}

void ScreenSaverService::simulateActivity()
{
    if (m_handlers.onActivity) m_handlers.onActivity();
}

std::uint32_t ScreenSaverService::idleSeconds() const
{
    return m_handlers.idleSeconds ? wholeSeconds(m_handlers.idleSeconds()) : 0;
}

std::uint32_t ScreenSaverService::activeSeconds() const
{
    return m_activeSince ? wholeSeconds(m_clock.now() - *m_activeSince) : 0;
}

} // namespace kestro
