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

qint64 microseconds(qint64 movieTime)
{
    return movieTime * 1'000'000 / SaverSnapshot::Movie::unitsPerSecond;
}

SaverOnBus::Handlers handlersFor(SaverSession& session, const std::function<void()>& stop)
{
    return {[&session] { session.changeMovie(MovieStep::Next); },
            [&session] { session.changeMovie(MovieStep::Previous); }, stop};
}

} // namespace

bool SessionControl::isWanted(const ConfigurationFile& file)
{
    file.warnAboutUnknown(section, {busKey});
    return file.isYes(section, busKey);
}

SessionControl::SessionControl(SaverSession& session, const std::function<void()>& stop)
    : m_session(session)
    , m_bus(SaverOnBus::sessionBus(), handlersFor(session, stop))
    , m_player(SaverOnBus::sessionBus(), handlersFor(session, stop))
{
    session.setTickHandler([this](const HostedSaver& saver) { ticked(saver); });
    session.setRestHandler([this](const HostedSaver& saver) { ticked(saver); });
}

void SessionControl::ticked(const HostedSaver& saver)
{
    if (m_session.savers().empty() || m_session.savers().front().get() != &saver) return;
    const SaverControl* const control = saver.control();
    shows(control ? control->snapshot().movie : std::nullopt);
}

void SessionControl::shows(const std::optional<SaverSnapshot::Movie>& movie)
{
    if (const QString text = movie ? movie->url : QString(); text != m_text) {
        m_text = text;
        m_url = QUrl(text);
        m_bus.shows(m_url);
    }
    if (!movie || !movie->isHeard) return m_player.plays({});
    m_player.setPosition(microseconds(movie->time));
    m_player.plays(HeardMovie{m_url, microseconds(movie->duration), double(movie->volume)});
}

} // namespace kestro
