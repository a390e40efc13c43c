#include "host/doctor/Examinations.h"
#include "host/xscreensaver/XscreensaverList.h"
#include "idle/IdleAutostart.h"
#include "idle/IdleRemote.h"
#include "idle/IdleStatus.h"
#include "platform/session/IdleRivals.h"
#include "platform/session/SessionPlaces.h"

#include <QFileInfo>

namespace kestro {

namespace {

const QString howToStart =
    QStringLiteral("switch on \"start by itself\" in kestro settings, or run kestro idle");

QString valueOf(const char* variable)
{
    const QString value = qEnvironmentVariable(variable);
    return value.isEmpty() ? QStringLiteral("unknown") : value;
}

Finding session(const SessionPlaces& places)
{
    const QString desktop = QStringLiteral("desktop ") + valueOf("XDG_CURRENT_DESKTOP");
    if (!places.waylandDisplay.isEmpty()) return fine(QStringLiteral("Wayland, ") + desktop);
    if (!places.xDisplay.isEmpty()) return fine(QStringLiteral("X11, ") + desktop);
    return better(QStringLiteral("no display here"),
                  QStringLiteral("run kestro doctor in a window of the desktop to have that looked at"));
}

Finding listed(const XscreensaverList& list)
{
    const auto isListed = list.isListed();
    if (!isListed)
        return broken(QStringLiteral("xscreensaver's list cannot be read: ") + isListed.error(),
                      QStringLiteral("mend or remove ") + list.path());
    if (isListed.value()) return fine(QStringLiteral("xscreensaver runs, and has Kestro in its list"));
    return broken(QStringLiteral("xscreensaver runs, and does not have Kestro in its list"),
                  QStringLiteral("kestro install-xscreensaver"));
}

/// Who starts the saver in this session. Asks two services at a time; each answers within a second.
class StartExamination final : public Examination {
public:
    StartExamination()
        : Examination(QStringLiteral("Start by itself"))
        , m_places(SessionPlaces::ofProcess())
        , m_service(m_places.bus)
        , m_rivals(m_places.bus, m_places.trueXDisplay())
    {
    }

    void begin(Done done) override
    {
        m_done = std::move(done);
        m_service.status([this](const std::optional<IdleStatus>& status) {
            m_status = status;
            answered();
        });
        m_rivals.look([this] { answered(); });
    }

private:
    void answered()
    {
        if (--m_awaited > 0) return;
        m_done({session(m_places), starter()});
    }

    [[nodiscard]] Finding starter() const
    {
        const auto rival = m_rivals.rival();
        if (rival && rival->name == u"xscreensaver") return listed(XscreensaverList::ofUser());
        if (rival)
            return better(rival->name + QStringLiteral(" runs, and starts what it is set to"),
                          QStringLiteral("have it show Kestro: ") + rival->remedy);
        if (m_status) return fine(QStringLiteral("kestro idle runs: ") + m_status->text());
        if (QFileInfo::exists(IdleAutostart::ofUser().path()))
            return broken(QStringLiteral("kestro idle is to start with the session, and does not run"),
                          QStringLiteral("run kestro idle in a terminal, and see what it says"));
        return better(QStringLiteral("nothing starts the saver by itself"), howToStart);
    }

    SessionPlaces m_places;
    IdleRemote m_service;
    IdleRivals m_rivals;
    std::optional<IdleStatus> m_status;
    int m_awaited = 2;
    Done m_done;
};

} // namespace

std::unique_ptr<Examination> startExamination()
{
    return std::make_unique<StartExamination>();
}

} // namespace kestro
