#include "platform/session/LockFact.h"

#include "platform/session/CallsLeft.h"
#include "platform/session/LogindSession.h"

#include <algorithm>
#include <array>

namespace kestro {

namespace {

const QString freedesktop = QStringLiteral("org.freedesktop.ScreenSaver");

/// Those who say themselves whether they are in front, by ActiveChanged and GetActive.
const std::array<BusAddress, 4> lockers = {{
    {QStringLiteral("org.gnome.ScreenSaver"), QStringLiteral("/org/gnome/ScreenSaver"),
     QStringLiteral("org.gnome.ScreenSaver")},
    {QStringLiteral("org.cinnamon.ScreenSaver"), QStringLiteral("/org/cinnamon/ScreenSaver"),
     QStringLiteral("org.cinnamon.ScreenSaver")},
    {QStringLiteral("org.xfce.ScreenSaver"), QStringLiteral("/org/xfce/ScreenSaver"),
     QStringLiteral("org.xfce.ScreenSaver")},
    {freedesktop, QStringLiteral("/ScreenSaver"), freedesktop},
}};

} // namespace

LockFact::LockFact(const QDBusConnection& sessionBus, const QDBusConnection& systemBus,
                   LogindSession& session)
    : m_bus(sessionBus)
    , m_session(session)
    , m_daemon(sessionBus, {QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
                            QStringLiteral("org.freedesktop.DBus")})
    , m_logind(systemBus,
               {QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
                QStringLiteral("org.freedesktop.login1.Manager")})
    , m_plasma(sessionBus, {QStringLiteral("org.kde.screensaver"), QStringLiteral("/ScreenSaver"),
                            QStringLiteral("org.kde.screensaver")})
{
    for (const BusAddress& locker : lockers)
        addLocker(locker);
    m_plasma.listen(QStringLiteral("AboutToLock"), [this](const QDBusMessage&) { announce(true); });
    m_logind.listenToOwner([this](bool isThere) {
        if (isThere) return askSession([] {});
        m_hint = false;
        update();
    });
    ask([] {});
}

void LockFact::addLocker(const BusAddress& address)
{
    auto locker = std::make_unique<Locker>();
    locker->object = std::make_unique<BusObject>(m_bus, address);
    locker->service = address.service;
    Locker* const it = locker.get();
    it->object->listen(QStringLiteral("ActiveChanged"), [this, it](const QDBusMessage& told) {
        if (told.service() == m_bus.baseService()) return; // our own saver
        it->isActive = told.arguments().value(0).toBool();
        announce(false);
    });
    it->object->listenToOwner([this, it](bool) {
        it->isActive = false;
        askLocker(*it, [] {});
    });
    m_lockers.push_back(std::move(locker));
}

void LockFact::ask(std::function<void()> onAnswer)
{
    const auto answered = afterCalls(static_cast<int>(m_lockers.size()) + 1, std::move(onAnswer));
    for (const auto& locker : m_lockers)
        askLocker(*locker, answered);
    askSession(answered);
}

/// The name of one of them may be ours: what we say of ourselves is no lock.
void LockFact::askLocker(Locker& locker, const std::function<void()>& onAnswer)
{
    const auto set = [this, &locker, onAnswer](bool isActive) {
        locker.isActive = isActive;
        update();
        onAnswer();
    };
    const QDeadlineTimer until(SessionFact::patience);
    const auto askIt = [this, &locker, set, until](const BusObject::Answer& owner) {
        if (!owner || owner->value(0) == m_bus.baseService()) return set(false);
        locker.object->call(
            QStringLiteral("GetActive"), {},
            [set](const BusObject::Answer& answer) { set(answer && answer->value(0).toBool()); }, until);
    };
    m_daemon.call(QStringLiteral("GetNameOwner"), {locker.service}, askIt, until);
}

void LockFact::askSession(const std::function<void()>& onAnswer)
{
    const QDeadlineTimer until(SessionFact::patience);
    m_session.find([this, onAnswer, until](BusObject* session) {
        if (!session) return onAnswer();
        if (session != m_heard) listenToSession(*session);
        askHint(*session, onAnswer);
    });
}

void LockFact::listenToSession(BusObject& session)
{
    m_heard = &session;
    session.listen(QStringLiteral("Lock"), [this](const QDBusMessage&) { announce(true); });
    session.listen(QStringLiteral("Unlock"), [this](const QDBusMessage&) { announce(false); });
    session.listenToProperties([this] { askHint(*m_heard, [] {}); });
}

void LockFact::askHint(BusObject& session, const std::function<void()>& onAnswer)
{
    session.property(QStringLiteral("LockedHint"), [this, onAnswer](const std::optional<QVariant>& hint) {
        setHint(hint && hint->toBool());
        onAnswer();
    });
}

void LockFact::setHint(bool isLocked)
{
    if (std::exchange(m_hint, isLocked) != isLocked) m_isAnnounced = false;
    update();
}

void LockFact::announce(bool isToBeLocked)
{
    m_isAnnounced = isToBeLocked;
    update();
}

void LockFact::personIsBack()
{
    announce(false);
}

void LockFact::update()
{
    const bool isLocked = m_hint || m_isAnnounced ||
                          std::ranges::any_of(m_lockers, [](const auto& locker) { return locker->isActive; });
    keep(isLocked ? QList<Hindrance>{{HindranceKind::Locked, {}, {}}} : QList<Hindrance>());
}

} // namespace kestro
