#include "platform/session/MutterIdleSource.h"

#include <utility>

namespace kestro {

BusAddress MutterIdleSource::mutter()
{
    const auto name = QStringLiteral("org.gnome.Mutter.IdleMonitor");
    return {name, QStringLiteral("/org/gnome/Mutter/IdleMonitor/Core"), name};
}

BusAddress MutterIdleSource::muffin()
{
    const auto name = QStringLiteral("org.cinnamon.Muffin.IdleMonitor");
    return {name, QStringLiteral("/org/cinnamon/Muffin/IdleMonitor/Core"), name};
}

MutterIdleSource::MutterIdleSource(const QDBusConnection& bus, const BusAddress& service,
                                   std::chrono::milliseconds patience)
    : m_name(service.service)
    , m_monitor(bus, service)
{
    m_away.setSingleShot(true);
    m_away.setInterval(patience);
    m_away.callOnTimeout([this] { lose(); });
    m_monitor.listenToOwner([this](bool isThere) { ownerChanged(isThere); });
    m_monitor.listen(QStringLiteral("WatchFired"),
                     [this](const QDBusMessage& signal) { fired(signal.arguments().value(0).toUInt()); });
}

MutterIdleSource::~MutterIdleSource()
{
    remove(m_idleWatch);
    remove(m_activeWatch);
}

void MutterIdleSource::watch(std::chrono::milliseconds span, Handlers handlers)
{
    remove(m_idleWatch);
    remove(m_activeWatch);
    m_span = span;
    m_handlers = std::move(handlers);
    m_isIdle = false;
    begin();
}

/// `onAnswer` gets the one value that it answers, unless another service or another span came meanwhile.
void MutterIdleSource::ask(const QString& method, const QVariantList& arguments,
                           std::function<void(const QVariant&)> onAnswer)
{
    const auto hear = [this, round = m_round, onAnswer = std::move(onAnswer)](const auto& answer) {
        if (round != m_round) return;
        if (!answer || answer->isEmpty()) return lose();
        onAnswer(answer->constFirst());
    };
    m_monitor.call(method, arguments, hear);
}

/// Nobody waits for the answer: what is not there any more need not be removed.
void MutterIdleSource::remove(uint& watchId)
{
    const uint removed = std::exchange(watchId, 0);
    if (removed != 0) m_monitor.call(QStringLiteral("RemoveWatch"), {removed}, [](const auto&) {});
}

/// A new service knows of no watches; while there is none nothing is told.
void MutterIdleSource::ownerChanged(bool isThere)
{
    if (m_span.count() == 0) return;
    ++m_round;
    m_idleWatch = m_activeWatch = 0;
    if (!isThere) return m_away.start();
    m_away.stop();
    begin();
    if (m_isIdle) awaitActivity();
}

void MutterIdleSource::begin()
{
    ++m_round;
    const auto span = static_cast<qulonglong>(m_span.count());
    ask(QStringLiteral("AddIdleWatch"), {span}, [this](const QVariant& id) { m_idleWatch = id.toUInt(); });
}

/// The service hears the question after the request, so that input either answers the one or fires the other.
void MutterIdleSource::awaitActivity()
{
    ask(QStringLiteral("AddUserActiveWatch"), {},
        [this](const QVariant& id) { m_activeWatch = id.toUInt(); });
    ask(QStringLiteral("GetIdletime"), {}, [this](const QVariant& time) {
        if (time.toULongLong() < static_cast<qulonglong>(m_span.count())) becomeActive();
    });
}

void MutterIdleSource::fired(uint watchId)
{
    if (watchId == 0) return;
    if (watchId == m_idleWatch) return becomeIdle();
    if (watchId != m_activeWatch) return;
    m_activeWatch = 0; // it fires once
    becomeActive();
}

void MutterIdleSource::becomeIdle()
{
    if (std::exchange(m_isIdle, true)) return;
    awaitActivity();
    const auto onIdle = m_handlers.onIdle;
    onIdle();
}

void MutterIdleSource::becomeActive()
{
    if (!std::exchange(m_isIdle, false)) return;
    remove(m_activeWatch);
    const auto onActive = m_handlers.onActive;
    onActive();
}

void MutterIdleSource::lose()
{
    ++m_round;
    m_span = {};
    m_idleWatch = m_activeWatch = 0;
    const auto onLost = std::exchange(m_handlers, {}).onLost;
    onLost();
}

} // namespace kestro
