#include "platform/session/ScreenSaverCookies.h"

#include "platform/base/Bounds.h"
#include "platform/base/Random.h"

#include <algorithm>

namespace kestro {

ScreenSaverCookies::ScreenSaverCookies(Random& random)
    : m_random(random)
{
}

std::optional<std::uint32_t> ScreenSaverCookies::add(const QString& caller, const QString& application,
                                                     const QString& reason)
{
    if (m_held.size() >= Bounds::inhibitors || countOf(caller) >= Bounds::inhibitorsOfOne) return {};
    std::uint32_t cookie = 0;
    while (cookie == 0 || m_held.contains(cookie))
        cookie = static_cast<std::uint32_t>(m_random.next());
    m_held.insert(cookie, {caller, {HindranceKind::Inhibited, plainWords(application), plainWords(reason)}});
    return cookie;
}

bool ScreenSaverCookies::remove(const QString& caller, std::uint32_t cookie)
{
    const auto held = m_held.constFind(cookie);
    if (held == m_held.constEnd() || held->caller != caller) return false;
    m_held.erase(held);
    return true;
}

void ScreenSaverCookies::removeAllOf(const QString& caller)
{
    m_held.removeIf([&caller](const auto& held) { return held.value().caller == caller; });
}

bool ScreenSaverCookies::has(const QString& caller) const
{
    return countOf(caller) > 0;
}

int ScreenSaverCookies::countOf(const QString& caller) const
{
    return static_cast<int>(
        std::ranges::count_if(m_held, [&caller](const Held& held) { return held.caller == caller; }));
}

QList<Hindrance> ScreenSaverCookies::hindrances() const
{
    QList<Hindrance> all;
    for (const Held& held : m_held)
        if (!all.contains(held.hindrance)) all.append(held.hindrance);
    std::ranges::sort(all, {}, [](const Hindrance& one) { return std::pair(one.who, one.why); });
    return all;
}

} // namespace kestro
