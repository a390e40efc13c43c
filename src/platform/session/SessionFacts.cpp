#include "platform/session/SessionFacts.h"

#include "platform/session/CameraLook.h"
#include "platform/session/FullScreenLook.h"
#include "platform/session/GamePadFact.h"
#include "platform/session/LockFact.h"
#include "platform/session/LogindInhibitors.h"
#include "platform/session/LogindSession.h"
#include "platform/session/MicrophoneLook.h"
#include "platform/session/PlasmaInhibitors.h"
#include "platform/session/PowerFact.h"
#include "platform/session/PowerManagementInhibitors.h"
#include "platform/session/SessionManagerInhibitors.h"
#include "platform/session/SleepFact.h"
#include "platform/session/SoundLook.h"
#include "platform/session/ThreadedLook.h"
#include "platform/session/X11Suspension.h"

#include <algorithm>
#include <unistd.h>

namespace kestro {

namespace {

const QString pactl = QStringLiteral("pactl");
const QString soundCards = QStringLiteral("/proc/asound");

QStringList desktops()
{
    return qEnvironmentVariable("XDG_CURRENT_DESKTOP").toUpper().split(u':', Qt::SkipEmptyParts);
}

template <typename Fact, typename... Arguments>
Fact* add(SessionFacts& facts, Arguments&&... arguments)
{
    auto fact = std::make_unique<Fact>(std::forward<Arguments>(arguments)...);
    Fact* const it = fact.get();
    facts.all.push_back(std::move(fact));
    return it;
}

/// These commonly switch the X server's own saver off, because they do its work.
bool isPlain()
{
    static const QStringList whole = {
        QStringLiteral("GNOME"), QStringLiteral("KDE"),  QStringLiteral("XFCE"), QStringLiteral("X-CINNAMON"),
        QStringLiteral("MATE"),  QStringLiteral("LXQT"), QStringLiteral("LXDE"), QStringLiteral("BUDGIE")};
    return std::ranges::none_of(desktops(), [](const QString& desktop) { return whole.contains(desktop); });
}

void addX11(SessionFacts& facts)
{
    const QByteArray display = qgetenv("DISPLAY");
    if (display.isEmpty() || qEnvironmentVariableIsSet("WAYLAND_DISPLAY")) return;
    const bool disabledCounts = isPlain();
    add<ThreadedLook>(facts, QStringLiteral("the X server's saver"),
                      [display, disabledCounts] { return x11Suspension(display, disabledCounts); });
}

void addInhibitors(SessionFacts& facts, const SessionFactsNeeds& needs)
{
    facts.service =
        add<ScreenSaverService>(facts, needs.sessionBus, *facts.logind, needs.random, needs.clock);
    add<SessionManagerInhibitors>(facts, needs.sessionBus);
    if (desktops().contains(QStringLiteral("XFCE"))) add<PowerManagementInhibitors>(facts, needs.sessionBus);
    if (desktops().contains(QStringLiteral("KDE"))) // it takes over what logind is told
        add<PlasmaInhibitors>(facts, needs.sessionBus);
    else
        add<LogindInhibitors>(facts, needs.systemBus, getuid());
    addX11(facts);
}

void addCaptures(SessionFacts& facts)
{
    add<ThreadedLook>(facts, QStringLiteral("microphones"),
                      [] { return microphonesInUse(pactl, soundCards); });
    add<ThreadedLook>(facts, QStringLiteral("cameras"),
                      [] { return camerasInUse(QStringLiteral("/proc"), QStringLiteral("/dev")); });
}

void addFullScreen(SessionFacts& facts)
{
    const QByteArray wayland = qgetenv("WAYLAND_DISPLAY");
    const QByteArray x = qgetenv("DISPLAY");
    if (wayland.isEmpty() && x.isEmpty()) return;
    add<ThreadedLook>(facts, QStringLiteral("full-screen windows"), [wayland, x] {
        const bool covers = wayland.isEmpty() ? isFullScreenOnX11(x) : isFullScreenOnWayland(wayland);
        return covers ? soundOfFullScreen(soundPlayed(pactl, soundCards)) : QList<Hindrance>();
    });
}

} // namespace

SessionFacts::SessionFacts() = default;
SessionFacts::SessionFacts(SessionFacts&&) noexcept = default;
SessionFacts::~SessionFacts() = default;

SessionFacts sessionFacts(const SessionFactsNeeds& needs)
{
    SessionFacts facts;
    facts.logind = std::make_unique<LogindSession>(needs.systemBus);
    addInhibitors(facts, needs);
    facts.lock = add<LockFact>(facts, needs.sessionBus, needs.systemBus, *facts.logind);
    facts.sleep = add<SleepFact>(facts, needs.systemBus);
    facts.power = add<PowerFact>(facts, needs.systemBus, needs.powerRule);
    facts.gamePads = add<GamePadFact>(facts, needs.padSpan, GamePadFact::thisMachine());
    addCaptures(facts);
    addFullScreen(facts);
    return facts;
}

} // namespace kestro
