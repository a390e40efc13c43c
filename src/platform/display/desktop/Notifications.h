#pragma once

#include "platform/display/view/Identity.h"

#include <functional>
#include <vector>

namespace kestro {

/// What is told of through the notification centre.
enum class Notice {
    ApplicationWillTerminate,
    WindowWillClose,  ///< the object is the Window
    SaverAboveTicked, ///< a saver that drives itself above a hosted view, the object, has had a tick
};

/// Passes notices from who posts them to who asked for them. One per desktop. Main thread.
class NotificationCenter final {
public:
    using Handler = std::function<void()>;

    /// Calls `handler` at each post of `notice` about `object`; a null object asks for all of them.
    void addObserver(const void* observer, Notice notice, const void* object, Handler handler);
    /// Takes away everything that `observer` asked for; allowed inside a handler.
    void removeObserver(const void* observer);
    void post(Notice notice, const void* object);

private:
    struct Entry {
        Identity identity;
        const void* observer;
        Notice notice;
        const void* object;
        Handler handler;
    };
    std::vector<Entry> m_entries;
};

} // namespace kestro
