#include "idle/IdleSwitch.h"

#include "platform/base/ChildProcess.h"
#include "platform/base/ChildProgram.h"
#include "platform/base/ConfigurationFile.h"
#include "platform/base/Log.h"
#include "platform/base/Paths.h"

#include <utility>

namespace kestro {

IdleSwitch::IdleSwitch(Places places)
    : m_places(std::move(places))
    , m_service(m_places.bus)
{
}

IdleSwitch::Places IdleSwitch::placesOfUser()
{
    return {configurationFile(), IdleAutostart::ofUser(), kestroProgram(), QDBusConnection::sessionBus()};
}

IdleOptions IdleSwitch::options() const
{
    return IdleOptions::from(ConfigurationFile::at(m_places.configuration));
}

Result<void> IdleSwitch::set(const IdleOptions& options)
{
    if (auto stored = store(options); !stored) return stored;
    if (auto started = m_places.autostart.set(options.isEnabled); !started) return started;
    if (options.isEnabled)
        m_service.reload([this](bool isHeard) {
            if (!isHeard) startService();
        });
    else
        m_service.quit([](bool) {});
    return {};
}

Result<void> IdleSwitch::store(const IdleOptions& options) const
{
    return changeConfiguration(m_places.configuration,
                               [&options](ConfigurationFile& file) { options.putInto(file); });
}

/// It outlives the window: the session's end ends it, or this switch.
void IdleSwitch::startService() const
{
    ChildProgram program;
    program.file = m_places.program;
    program.arguments = {QStringLiteral("idle")};
    program.group = ChildProgram::Group::OwnSession;
    auto process = ChildProcess::start(program);
    if (process)
        ChildProcess::leave(std::move(process.value()));
    else
        logLine(QStringLiteral("Cannot start %1: %2.").arg(m_places.program, process.error()));
}

void IdleSwitch::watchStatus(IdleRemote::StatusHandler handler)
{
    m_service.status(handler);
    m_service.watch(std::move(handler));
}

} // namespace kestro
