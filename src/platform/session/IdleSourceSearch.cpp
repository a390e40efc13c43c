#include "platform/session/IdleSourceSearch.h"

#include "platform/session/MutterIdleSource.h"
#include "platform/session/WaylandIdleSource.h"
#include "platform/session/XSyncIdleSource.h"

#include <utility>

namespace kestro {

namespace {

constexpr std::chrono::milliseconds patience(SessionFact::patience);

} // namespace

IdleSourceSearch::IdleSourceSearch(SessionPlaces places, Found onFound)
    : m_places(std::move(places))
    , m_onFound(std::move(onFound))
    , m_bus(m_places.bus, busItself())
{
    lookForMonitor(MutterIdleSource::mutter(),
                   [this] { lookForMonitor(MutterIdleSource::muffin(), [this] { lookAtWayland(); }); });
}

void IdleSourceSearch::lookForMonitor(const BusAddress& monitor, std::function<void()> otherwise)
{
    const auto hear = [this, monitor, otherwise = std::move(otherwise)](const auto& answer) {
        if (!answer || !answer->value(0).toBool()) return otherwise();
        finish(std::make_unique<MutterIdleSource>(m_places.bus, monitor));
    };
    m_bus.call(QStringLiteral("NameHasOwner"), {monitor.service}, hear);
}

void IdleSourceSearch::lookAtWayland()
{
    if (m_places.waylandDisplay.isEmpty()) return lookAtX();
    using Connection = std::shared_ptr<WaylandConnection>;
    m_task = DetachedTask::start<Connection>(
        QStringLiteral("Wayland at ") + QString::fromUtf8(m_places.waylandDisplay), patience,
        [display = m_places.waylandDisplay] { return WaylandConnection::open(display); },
        [this](std::optional<Connection> answer) {
            if (!answer) return finish(nullptr); // it is there, and hangs
            if (*answer) return finish(WaylandIdleSource::create(std::move(*answer)));
            lookAtX(); // nobody is there: what named it is older than this session
        });
    if (!m_task) finish(nullptr);
}

/// Only where there is no Wayland: Xwayland has the counter too, but hears of no input to other windows than
/// X11's, so that a person who types into any other would count as away.
void IdleSourceSearch::lookAtX()
{
    if (m_places.xDisplay.isEmpty()) return finish(nullptr);
    using Counter = std::optional<XSyncIdleSource::Counter>;
    m_task = DetachedTask::start<Counter>(
        QStringLiteral("IDLETIME of ") + QString::fromUtf8(m_places.xDisplay), patience,
        [display = m_places.xDisplay] { return XSyncIdleSource::open(display); },
        [this](std::optional<Counter> answer) {
            if (!answer || !*answer) return finish(nullptr);
            finish(std::make_unique<XSyncIdleSource>(std::move(**answer)));
        });
    if (!m_task) finish(nullptr);
}

void IdleSourceSearch::finish(std::unique_ptr<IdleSource> source)
{
    const auto onFound = m_onFound;
    onFound(std::move(source));
}

} // namespace kestro
