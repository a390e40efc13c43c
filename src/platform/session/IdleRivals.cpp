#include "platform/session/IdleRivals.h"

#include "platform/session/SessionPlaces.h"

#include <algorithm>
#include <utility>

namespace kestro {

namespace {

const QString xscreensaver = QStringLiteral("xscreensaver");

/// Puts a theme where both services that are made of themes look for it.
const QString themeRemedy = QStringLiteral(
    "f=${XDG_DATA_HOME:-~/.local/share}/applications/screensavers; mkdir -p $f && printf '%s\\n' "
    "'[Desktop Entry]' Type=Application Name=Kestro 'Exec=kestro --root' TryExec=kestro "
    "'Categories=Screensaver;' > $f/kestro.desktop");

} // namespace

IdleRivals::Service::Service(const QDBusConnection& bus, QString nameOnBus, QString programName)
    : busName(std::move(nameOnBus))
    , program(std::move(programName))
    , object(bus, {busName, QString(), QString()})
{
}

IdleRivals::IdleRivals(const QDBusConnection& bus, QByteArray xDisplay)
    : m_bus(bus, busItself())
    , m_services{Service(bus, QStringLiteral("org.mate.ScreenSaver"), QStringLiteral("mate-screensaver")),
                 Service(bus, QStringLiteral("org.xfce.ScreenSaver"), QStringLiteral("xfce4-screensaver"))}
    , m_xDisplay(std::move(xDisplay))
{
    for (Service& service : m_services)
        service.object.listenToOwner([this, &service](bool isThere) {
            if (std::exchange(service.isThere, isThere) != isThere) changed();
        });
}

IdleRivals::~IdleRivals() = default;

void IdleRivals::look(std::function<void()> onSeen)
{
    m_waiting.push_back(std::move(onSeen));
    if (m_awaited > 0) return;
    m_awaited = 1; // so that no answer is the last one before all were asked for
    lookAtBus();
    lookAtX();
    QMetaObject::invokeMethod(
        &m_bus, [this] { looked(); }, Qt::QueuedConnection);
}

std::optional<IdleRival> IdleRivals::rival() const
{
    if (m_daemon) return IdleRival{xscreensaver, QStringLiteral("kestro install-xscreensaver")};
    const auto* const found = std::ranges::find_if(m_services, &Service::isThere);
    if (found == m_services.end()) return {};
    return IdleRival{found->program, themeRemedy};
}

void IdleRivals::lookAtBus()
{
    for (Service& service : m_services) {
        ++m_awaited;
        m_bus.call(QStringLiteral("NameHasOwner"), {service.busName}, [this, &service](const auto& answer) {
            service.isThere = answer && answer->value(0).toBool();
            looked();
        });
    }
}

void IdleRivals::lookAtX()
{
    if (m_xDisplay.isEmpty() || m_daemon) return;
    using Found = std::optional<XscreensaverDaemon::Found>;
    m_search = DetachedTask::start<Found>(
        QStringLiteral("xscreensaver on ") + QString::fromUtf8(m_xDisplay),
        std::chrono::milliseconds(SessionFact::patience),
        [display = m_xDisplay] { return XscreensaverDaemon::find(display); },
        [this](std::optional<Found> answer) {
            if (answer && *answer)
                m_daemon = std::make_unique<XscreensaverDaemon>(std::move(**answer), [this] {
                    m_daemon.reset();
                    changed();
                });
            looked();
        });
    if (m_search) ++m_awaited;
}

/// One more answer is there.
void IdleRivals::looked()
{
    if (--m_awaited > 0) return;
    for (const auto& onSeen : std::exchange(m_waiting, {}))
        onSeen();
}

void IdleRivals::changed() const
{
    const auto onChange = m_onChange;
    if (onChange) onChange();
}

} // namespace kestro
