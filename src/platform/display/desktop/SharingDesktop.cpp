#include "platform/display/desktop/SharingDesktop.h"

#include "platform/base/Log.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/surface/SharedSurface.h"

#include <algorithm>
#include <utility>

namespace kestro {

namespace {

ScreenPlan::Monitor planned(const Screen& screen)
{
    return {screen.name(), screen.frame(), screen.surface().pixelSize(), screen.surface().pixelRatio()};
}

} // namespace

SharingDesktop::SharingDesktop(Desktop& below, ScreenChoice choice)
    : m_below(below)
    , m_choice(std::move(choice))
{
    follow(nullptr);
    m_below.setScreenObserver({
        .added = [this](Screen&) { follow(nullptr); },
        .resized = [this](Screen&) { follow(nullptr); },
        .removed = [this](Screen& screen) { follow(&screen); },
    });
}

std::unique_ptr<SharingDesktop> SharingDesktop::over(Desktop& below, const ScreenChoice& choice)
{
    return choice == ScreenChoice() ? nullptr : std::make_unique<SharingDesktop>(below, choice);
}

SharingDesktop::~SharingDesktop()
{
    m_below.setScreenObserver({});
    for (const Monitor& monitor : m_monitors) {
        monitor.screen->surface().setInputHandler({});
        monitor.screen->surface().setSeenHandler({});
        monitor.screen->lendSurface({});
    }
}

std::vector<Screen*> SharingDesktop::screens() const
{
    std::vector<Screen*> all;
    for (const Shown& shown : m_shown)
        all.push_back(shown.screen.get());
    return all;
}

/// The desk has changed below, or is about to, by the screen that goes.
void SharingDesktop::follow(const Screen* going)
{
    listMonitors(going);
    const ScreenPlan next = plan();
    tellMissing(next.missing);
    removeOthers(next);
    for (Monitor& monitor : m_monitors)
        monitor.shows = nullptr;
    for (std::size_t place = 0; place < next.pictures.size(); ++place)
        show(next.pictures[place], place);
    for (const Monitor& monitor : m_monitors)
        if (!monitor.shows) monitor.screen->lendSurface({});
    tellSeen();
}

void SharingDesktop::listMonitors(const Screen* going)
{
    const auto before = std::exchange(m_monitors, {});
    for (Screen* screen : m_below.screens()) {
        if (screen == going) continue;
        const auto known = std::ranges::find(before, screen, &Monitor::screen);
        m_monitors.push_back(known != before.end() ? *known : Monitor{screen});
        if (known != before.end()) continue;
        screen->surface().setInputHandler([this, screen](const InputEvent& event) { tell(*screen, event); });
        screen->surface().setSeenHandler([this, screen](bool isSeen) { seen(screen, isSeen); });
    }
}

ScreenPlan SharingDesktop::plan() const
{
    std::vector<ScreenPlan::Monitor> monitors;
    for (const Monitor& monitor : m_monitors)
        monitors.push_back(planned(*monitor.screen));
    return ScreenPlan::of(m_choice, monitors);
}

/// The monitor that the picture's screen stands for; null where that is one for all of them.
const Screen* SharingDesktop::keyOf(const ScreenPlan::Picture& picture) const
{
    if (m_choice.mode != ScreensMode::Each) return nullptr;
    return m_monitors[picture.parts.front().monitor].screen;
}

void SharingDesktop::removeOthers(const ScreenPlan& plan)
{
    const auto isPlanned = [&](const Shown& shown) {
        return std::ranges::any_of(plan.pictures,
                                   [&](const auto& each) { return keyOf(each) == shown.monitor; });
    };
    for (auto gone = std::ranges::find_if_not(m_shown, isPlanned); gone != m_shown.end();
         gone = std::ranges::find_if_not(m_shown, isPlanned)) {
        if (m_observer.removed) m_observer.removed(*gone->screen);
        m_shown.erase(gone);
    }
}

void SharingDesktop::show(const ScreenPlan::Picture& picture, std::size_t place)
{
    const auto known = std::ranges::find(m_shown, keyOf(picture), &Shown::monitor);
    if (known == m_shown.end()) return add(picture, place);
    layOut(*known->surface, picture);
    Screen& screen = *known->screen;
    std::rotate(std::min(known, m_shown.begin() + std::ptrdiff_t(place)), known, known + 1);
    screen.setFrame(picture.frame);
    // Told even where the picture is as before: the pointer may not be.
    if (m_observer.resized) m_observer.resized(screen);
}

void SharingDesktop::add(const ScreenPlan::Picture& picture, std::size_t place)
{
    auto surface = std::make_unique<SharedSurface>();
    SharedSurface* const borrowed = surface.get();
    layOut(*borrowed, picture);
    auto made = std::make_unique<Screen>(*this, picture.frame, std::move(surface));
    Screen& screen = *made;
    m_shown.insert(m_shown.begin() + std::ptrdiff_t(std::min(place, m_shown.size())),
                   {keyOf(picture), borrowed, std::move(made)});
    if (m_observer.added) m_observer.added(screen);
}

void SharingDesktop::layOut(SharedSurface& surface, const ScreenPlan::Picture& picture)
{
    std::vector<SharedSurface::Part> parts;
    for (const ScreenPlan::Part& part : picture.parts) {
        Monitor& monitor = m_monitors[part.monitor];
        monitor.shows = &surface;
        monitor.screen->lendSurface([&surface] { surface.repair(); });
        parts.push_back({&monitor.screen->surface(), part.place});
    }
    surface.setParts(std::move(parts), picture.pixels, picture.ratio);
}

void SharingDesktop::tellMissing(const QStringList& missing)
{
    if (m_monitors.empty() || std::exchange(m_missing, missing) == missing || missing.isEmpty()) return;
    const bool isNone = missing.size() == m_choice.monitors.names.size();
    logLine(
        QStringLiteral("No monitor has the name %1%2.")
            .arg(missing.join(QStringLiteral(", ")), isNone ? QStringLiteral(": all are used") : QString()));
}

void SharingDesktop::seen(const Screen* monitor, bool isSeen)
{
    const auto found = std::ranges::find(m_monitors, monitor, &Monitor::screen);
    if (found == m_monitors.end()) return;
    found->isSeen = isSeen;
    tellSeen();
}

/// A picture is seen where any of its monitors is.
void SharingDesktop::tellSeen()
{
    for (const Shown& shown : m_shown)
        shown.surface->setSeen(std::ranges::any_of(m_monitors, [&shown](const Monitor& monitor) {
            return monitor.shows == shown.surface && monitor.isSeen;
        }));
}

/// A place on the desk is told as it lies to the picture's corner, even where that is on another monitor.
void SharingDesktop::tell(const Screen& monitor, const InputEvent& event) const
{
    if (m_shown.empty()) return;
    const Screen& first = *m_shown.front().screen;
    const QPointF by(monitor.frame().left() - first.frame().left(),
                     first.frame().top() - monitor.frame().top());
    InputEvent moved = event;
    moved.position += by;
    m_shown.front().surface->tell(moved);
}

} // namespace kestro
