#pragma once

#include "host/session/WakeWatch.h"
#include "platform/display/view/Geometry.h"
#include "platform/saver/SaverControl.h"

#include <functional>
#include <memory>
#include <vector>

namespace kestro {

class Desktop;
class HostedSaver;
class Screen;
class ScreenSaverView;

/// The saver running on every screen of a desktop: one view a screen, started, ticked and stopped as a screen
/// saver's host does, and kept in step with screens that come, go and change. Owned by the program, which
/// outlives it with the desktop. Main thread.
class SaverSession final {
public:
    /// Makes the view of one screen, `frame` at (0, 0); null when it cannot.
    using ViewFactory = std::function<std::shared_ptr<ScreenSaverView>(const Rect& frame)>;
    using TickHandler = std::function<void(HostedSaver&)>;

    SaverSession(Desktop& desktop, ViewFactory factory);
    ~SaverSession();
    SaverSession(const SaverSession&) = delete;
    SaverSession& operator=(const SaverSession&) = delete;

    /// Called once, when a person does something that is meant to end the saver. It is not stopped by that.
    void setWakeHandler(std::function<void()> handler) { m_onWake = std::move(handler); }
    /// Asked of each key before it counts as meant to end the saver, until something did: whether it was
    /// meant for something else, which is done then. Not while the savers rest.
    void setKeyHandler(std::function<bool(const InputEvent&)> handler) { m_onKey = std::move(handler); }
    /// Called after each tick of each screen's view.
    void setTickHandler(TickHandler handler) { m_onTick = std::move(handler); }
    /// Called with a saver that has been told how to rest, or to go on.
    void setRestHandler(TickHandler handler) { m_onRest = std::move(handler); }

    /// Covers every screen, then starts a saver on each, first screen first. Answers false when there are
    /// screens and none got a view; where there is no screen yet, the first one that comes gets a saver.
    bool start();
    /// Stops every view, first screen first, and tells that the application ends. Nothing when already
    /// stopped.
    void stop();
    [[nodiscard]] bool isStopped() const { return m_isStopped; }

    /// Has every saver rest like that from now on, those too that screens get later.
    void rest(Rest how);

    /// Has every saver change to another movie, as far as each can.
    void changeMovie(MovieStep step);

    /// Has every saver do that, as far as each can.
    void act(SaverAct what);

    /// First screen first.
    [[nodiscard]] const std::vector<std::shared_ptr<HostedSaver>>& savers() const { return m_savers; }

private:
    std::shared_ptr<HostedSaver> cover(Screen& screen);
    static void forget(const Screen& screen);
    void watchScreens();
    void screenAdded(Screen& screen);
    void screenResized(const Screen& screen);
    void screenRemoved(Screen& screen);
    void handleInput(const Screen& screen, const InputEvent& event);

    Desktop& m_desktop;
    ViewFactory m_factory;
    std::function<void()> m_onWake;
    std::function<bool(const InputEvent&)> m_onKey;
    TickHandler m_onTick;
    TickHandler m_onRest;
    WakeWatch m_watch;
    std::vector<std::shared_ptr<HostedSaver>> m_savers;
    Rest m_rest = Rest::None;
    bool m_isStopped = false;
};

} // namespace kestro
