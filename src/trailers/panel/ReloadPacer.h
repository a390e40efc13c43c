#pragma once

#include "platform/display/desktop/Timer.h"
#include "widgets/WidgetDesktop.h"

#include <functional>
#include <memory>

namespace kestro {

/// Keeps the reloads of a long list from taking all of the main thread while a crawl asks for one at every
/// page: after one that took long, the next waits for some times as long. Short ones are made at once. Owned
/// by the panel; its services must outlive it. Main thread; seconds.
class ReloadPacer final {
public:
    ReloadPacer(const SurfaceServices& services, std::function<void()> reload);

    /// Reloads, now or once the pause is over; one reload then stands for all that were asked for.
    void request();
    /// Ends the pause, and makes the reload that waits for its end.
    void finish();

private:
    void run();

    SurfaceServices m_services;
    std::function<void()> m_reload;
    std::unique_ptr<Timer> m_pause; ///< null where there is none
    bool m_isWanted = false;        ///< at the end of the pause
};

} // namespace kestro
