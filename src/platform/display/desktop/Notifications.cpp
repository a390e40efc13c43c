#include "platform/display/desktop/Notifications.h"

#include <algorithm>

namespace kestro {

void NotificationCenter::addObserver(const void* observer, Notice notice, const void* object, Handler handler)
{
    m_entries.push_back({makeIdentity(), observer, notice, object, std::move(handler)});
}

void NotificationCenter::removeObserver(const void* observer)
{
    std::erase_if(m_entries, [observer](const Entry& entry) { return entry.observer == observer; });
}

void NotificationCenter::post(Notice notice, const void* object)
{
    // A handler may add and remove observers: each one of those asked for before the post is called if it
    // still is.
    const auto asked = m_entries;
    for (const Entry& entry : asked) {
        if (entry.notice != notice || (entry.object && entry.object != object)) continue;
        const auto isSame = [&entry](const Entry& other) { return other.identity == entry.identity; };
        if (std::any_of(m_entries.begin(), m_entries.end(), isSame)) entry.handler();
    }
}

} // namespace kestro
