#include "host/session/SessionControl.h"

#include "host/session/HostedSaver.h"
#include "host/session/SaverSession.h"
#include "platform/base/ConfigurationFile.h"
#include "platform/saver/SaverControl.h"

#include <utility>

namespace kestro {

namespace {

const QString section = QStringLiteral("control");
const QString busKey = QStringLiteral("bus");

} // namespace

bool SessionControl::isWanted(const ConfigurationFile& file)
{
    file.warnAboutUnknown(section, {busKey});
    return file.isYes(section, busKey);
}

SessionControl::SessionControl(SaverSession& session, std::function<void()> stop)
    : m_session(session)
    , m_bus(SaverOnBus::sessionBus(),
            {[&session] { session.changeMovie(MovieStep::Next); },
             [&session] { session.changeMovie(MovieStep::Previous); }, std::move(stop)})
{
    session.setTickHandler([this](const HostedSaver& saver) { ticked(saver); });
}

void SessionControl::ticked(const HostedSaver& saver)
{
    if (m_session.savers().empty() || m_session.savers().front().get() != &saver) return;
    const SaverControl* const control = saver.control();
    const auto movie = control ? control->snapshot().movie : std::nullopt;
    m_bus.shows(movie ? QUrl(movie->url) : QUrl());
}

} // namespace kestro
