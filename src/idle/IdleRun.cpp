#include "idle/IdleRun.h"

#include "host/start/Console.h"
#include "host/start/StopSignals.h"
#include "host/start/StopThread.h"
#include "idle/IdleControl.h"
#include "idle/IdleOptions.h"
#include "idle/IdleService.h"
#include "idle/KeyOptions.h"
#include "idle/PowerOptions.h"
#include "idle/RivalFact.h"
#include "idle/SaverChild.h"
#include "platform/base/Clock.h"
#include "platform/base/ConfigurationFile.h"
#include "platform/base/Log.h"
#include "platform/base/Paths.h"
#include "platform/base/Random.h"
#include "platform/session/IdleSourceSearch.h"
#include "platform/session/LockFact.h"
#include "platform/session/PowerFact.h"
#include "platform/session/SessionFacts.h"
#include "platform/session/SleepFact.h"

#include <QCoreApplication>
#include <QLockFile>

#include <utility>

namespace kestro {

namespace {

/// The service with all its parts in this session. Lives as long as the event loop.
class SessionRun final {
public:
    SessionRun(std::optional<std::chrono::seconds> after, QStringList saverWords);

    /// Looks for what tells of the person, and looks after the session from then on.
    void begin();

private:
    void serve(std::unique_ptr<IdleSource> source);
    void connectService();
    void changed();
    void seen(const std::optional<IdleRival>& rival);
    void reload();
    [[nodiscard]] std::chrono::seconds after(const ConfigurationFile& file) const;

    const SystemClock m_clock;
    SystemRandom m_random;
    const std::optional<std::chrono::seconds> m_after;
    const QStringList m_saverWords;
    const SessionPlaces m_places = SessionPlaces::ofProcess();
    std::unique_ptr<IdleSourceSearch> m_search;
    SessionFacts m_facts;
    std::unique_ptr<IdleService> m_service;
    std::unique_ptr<IdleControl> m_control;
};

SessionRun::SessionRun(std::optional<std::chrono::seconds> after, QStringList saverWords)
    : m_after(after)
    , m_saverWords(std::move(saverWords))
    , m_facts(sessionFacts({.sessionBus = m_places.bus,
                            .systemBus = QDBusConnection::systemBus(),
                            .random = m_random,
                            .clock = m_clock,
                            .powerRule = powerRuleFrom(ConfigurationFile::ofUser())}))
{
}

void SessionRun::begin()
{
    m_search = std::make_unique<IdleSourceSearch>(m_places, [this](std::unique_ptr<IdleSource> source) {
        m_search.reset();
        if (source) return serve(std::move(source));
        printError(QStringLiteral(
            "Nothing in this session tells when you are away: no idle monitor of a desktop, no "
            "protocol of a Wayland compositor, no counter of an X server."));
        QCoreApplication::exit(ExitFailure);
    });
}

void SessionRun::serve(std::unique_ptr<IdleSource> source)
{
    auto rivals = std::make_unique<RivalFact>(m_places.bus, m_places.trueXDisplay(),
                                              [this](const std::optional<IdleRival>& rival) { seen(rival); });
    IdleService::Parts parts{std::move(source), std::move(m_facts.all), std::move(rivals),
                             std::make_unique<SaverChild>(kestroProgram(), m_saverWords)};
    const ConfigurationFile file = ConfigurationFile::ofUser();
    m_service = std::make_unique<IdleService>(m_clock, std::move(parts), after(file));
    m_service->leaveInputToSaver(KeyOptions::from(file).isEnabled);
    logLine(QStringLiteral("Waiting until you are away; %1 tells.").arg(m_service->status().source));
    connectService();
    m_service->lookForRival();
}

void SessionRun::connectService()
{
    m_control = std::make_unique<IdleControl>(
        m_places.bus, IdleControl::Handlers{.status = [this] { return m_service->status(); },
                                            .show = [this] { m_service->showNow(); },
                                            .reload = [this] { reload(); },
                                            .quit = [] { QCoreApplication::quit(); }});
    if (!m_control->begin())
        logLine(QStringLiteral("No bus of this session: nobody can ask what keeps the saver from starting."));
    m_service->setChangeHandler([this] { changed(); });
    m_service->setBackHandler([this] { m_facts.lock->personIsBack(); });
    m_service->setLostHandler([] {
        printError(QStringLiteral("What told of you in this session is gone."));
        QCoreApplication::exit(ExitFailure);
    });
    m_facts.service->setHandlers({.onShow = [this](bool isShown) { m_service->show(isShown); },
                                  .onActivity = [this] { m_service->simulateActivity(); },
                                  .idleSeconds = [this] { return m_service->idleSeconds(); }});
}

void SessionRun::changed()
{
    const bool isRunning = m_service->isSaverRunning();
    m_facts.service->setActive(isRunning);
    if (!isRunning) m_facts.sleep->release();
    m_control->tellChange();
}

void SessionRun::seen(const std::optional<IdleRival>& rival)
{
    if (!m_service) return;
    const QString name = rival ? rival->name : QString();
    if (name == m_service->status().rival) return;
    if (rival)
        logLine(QStringLiteral("%1 looks after this session. To have it show Kestro: %2")
                    .arg(name, rival->remedy));
    m_service->standAsideFor(name);
}

void SessionRun::reload()
{
    const ConfigurationFile file = ConfigurationFile::ofUser();
    m_facts.power->setRule(powerRuleFrom(file));
    m_service->setAfter(after(file));
    m_service->leaveInputToSaver(KeyOptions::from(file).isEnabled);
}

std::chrono::seconds SessionRun::after(const ConfigurationFile& file) const
{
    return m_after.value_or(IdleOptions::from(file).after);
}

} // namespace

int serveSession(std::optional<std::chrono::seconds> after, const QStringList& saverWords)
{
    QLockFile onlyOne(temporaryFolder() + QStringLiteral("/idle.lock"));
    onlyOne.setStaleLockTime(0);
    if (!onlyOne.tryLock()) {
        printError(QStringLiteral("kestro idle runs in this session already."));
        return ExitFailure;
    }
    const StopSignals signalWatch([](int) {
        beginEnd();
        QCoreApplication::quit();
    });
    SessionRun run(after, saverWords);
    run.begin();
    return QCoreApplication::exec();
}

} // namespace kestro
