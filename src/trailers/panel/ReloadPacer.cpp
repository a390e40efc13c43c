#include "trailers/panel/ReloadPacer.h"

#include "platform/base/Clock.h"

#include <utility>

namespace kestro {

namespace {

constexpr double longReload = 0.03; // seconds
constexpr double pauseShare = 4;    // of what the reload took

} // namespace

ReloadPacer::ReloadPacer(const SurfaceServices& services, std::function<void()> reload)
    : m_services(services)
    , m_reload(std::move(reload))
{
}

void ReloadPacer::request()
{
    if (m_pause)
        m_isWanted = true;
    else
        run();
}

void ReloadPacer::finish()
{
    m_pause.reset();
    if (std::exchange(m_isWanted, false)) run();
}

void ReloadPacer::run()
{
    const double begin = m_services.clock.now();
    m_reload();
    const double took = m_services.clock.now() - begin;
    if (took >= longReload) m_pause = m_services.timers.repeating(took * pauseShare, [this] { finish(); });
}

} // namespace kestro
