#include "host/session/SaverSession.h"

#include "host/session/HostedSaver.h"
#include "platform/base/Log.h"
#include "platform/display/desktop/Desktop.h"
#include "platform/display/desktop/Notifications.h"
#include "platform/display/desktop/Screen.h"
#include "platform/saver/ScreenSaverView.h"

#include <algorithm>
#include <utility>

namespace kestro {

SaverSession::SaverSession(Desktop& desktop, ViewFactory factory)
    : m_desktop(desktop)
    , m_factory(std::move(factory))
{
}

SaverSession::~SaverSession()
{
    stop();
    m_desktop.setScreenObserver({});
    for (Screen* screen : m_desktop.screens())
        forget(*screen);
}

bool SaverSession::start()
{
    watchScreens();
    for (Screen* screen : m_desktop.screens())
        cover(*screen);
    for (const auto& saver : m_savers)
        saver->start();
    return !m_savers.empty() || m_desktop.screens().empty();
}

void SaverSession::stop()
{
    if (std::exchange(m_isStopped, true)) return;
    for (const auto& saver : m_savers)
        saver->stop();
    m_desktop.notifications().post(Notice::ApplicationWillTerminate, nullptr);
}

void SaverSession::forget(const Screen& screen)
{
    screen.surface().setInputHandler({});
    screen.surface().setSeenHandler({});
}

void SaverSession::rest(Rest how)
{
    m_rest = how;
    for (const auto& saver : m_savers) {
        saver->rest(how);
        if (m_onRest) m_onRest(*saver);
    }
}

void SaverSession::changeMovie(MovieStep step)
{
    for (const auto& saver : m_savers)
        if (auto* const control = saver->control()) control->changeMovie(step);
}

void SaverSession::act(SaverAct what)
{
    for (const auto& saver : m_savers)
        if (auto* const control = saver->control()) control->act(what);
}

std::shared_ptr<HostedSaver> SaverSession::cover(Screen& screen)
{
    screen.surface().setInputHandler(
        [this, &screen](const InputEvent& event) { handleInput(screen, event); });
    auto view = m_factory({{0, 0}, screen.frame().size});
    if (!view) {
        logLine(QStringLiteral("Cannot make a saver view for a screen."));
        return nullptr;
    }
    auto saver = std::make_shared<HostedSaver>(screen, std::move(view), [this](HostedSaver& ticked) {
        if (m_onTick) m_onTick(ticked);
    });
    saver->rest(m_rest);
    screen.surface().setSeenHandler([this, hosted = std::weak_ptr(saver)](bool isSeen) {
        const auto it = hosted.lock();
        if (!it) return;
        it->setSeen(isSeen);
        if (m_onRest) m_onRest(*it);
    });
    m_savers.push_back(saver);
    return saver;
}

void SaverSession::watchScreens()
{
    m_desktop.setScreenObserver({
        .added = [this](Screen& screen) { screenAdded(screen); },
        .resized = [this](Screen& screen) { screenResized(screen); },
        .removed = [this](Screen& screen) { screenRemoved(screen); },
    });
}

void SaverSession::screenAdded(Screen& screen)
{
    m_watch.forgetPointer();
    if (m_isStopped) return;
    if (const auto saver = cover(screen)) saver->start();
}

void SaverSession::screenResized(const Screen& screen)
{
    m_watch.forgetPointer();
    for (const auto& saver : m_savers)
        if (&saver->screen() == &screen) saver->fitToScreen();
}

void SaverSession::screenRemoved(Screen& screen)
{
    m_watch.forgetPointer();
    const auto found =
        std::ranges::find(m_savers, &screen, [](const auto& saver) { return &saver->screen(); });
    if (found == m_savers.end()) return;
    const auto saver = *found;
    m_savers.erase(found);
    saver->stop();
}

void SaverSession::handleInput(const Screen& screen, const InputEvent& event)
{
    const bool mayAct = m_onWake && m_onKey && m_rest == Rest::None;
    if (mayAct && event.kind == InputEvent::Kind::Key && m_onKey(event)) return;
    const Rect frame = screen.frame();
    const Point position{frame.left() + static_cast<float>(event.position.x()),
                         frame.top() - static_cast<float>(event.position.y())};
    if (!m_watch.endsSaver(event.kind, position)) return;
    if (const auto onWake = std::exchange(m_onWake, nullptr)) onWake();
}

} // namespace kestro
