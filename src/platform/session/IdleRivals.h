#pragma once

#include "platform/base/DetachedTask.h"
#include "platform/session/BusObject.h"
#include "platform/session/XscreensaverDaemon.h"

#include <QByteArray>
#include <QString>

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace kestro {

/// A program that starts savers by itself: two of that kind would show one over the other.
struct IdleRival {
    QString name;   ///< "xscreensaver"
    QString remedy; ///< what makes it show Kestro, in one line for a shell
};

/// Whether a rival runs in this session: xscreensaver, mate-screensaver or xfce4-screensaver. Those that only
/// lock (GNOME's, KDE's, Cinnamon's, light-locker) are none. Services of the bus are known as they come and
/// go; a daemon of xscreensaver when it goes, and when it is looked for. Owned by the program that asks. Main
/// thread.
class IdleRivals final {
public:
    /// `xDisplay` as in DISPLAY; empty where there is no X11 session, as under Wayland, where a look at it
    /// would start an X server for nothing and xscreensaver sees nothing of the person.
    IdleRivals(const QDBusConnection& bus, QByteArray xDisplay);
    ~IdleRivals();
    IdleRivals(const IdleRivals&) = delete;
    IdleRivals& operator=(const IdleRivals&) = delete;

    /// Finds out anew. `onSeen` is called once from the event loop, a second later at most; it may destroy
    /// this.
    void look(std::function<void()> onSeen);
    /// The one that runs, as far as known; nothing where none does.
    [[nodiscard]] std::optional<IdleRival> rival() const;
    /// Called from the event loop when rival() has changed without a look; may destroy this.
    void setChangeHandler(std::function<void()> handler) { m_onChange = std::move(handler); }

private:
    /// A saver's service on the session bus.
    struct Service {
        Service(const QDBusConnection& bus, QString nameOnBus, QString programName);
        QString busName;
        QString program;
        BusObject object;
        bool isThere = false;
    };
    void lookAtBus();
    void lookAtX();
    void looked();
    void changed() const;

    BusObject m_bus;
    std::array<Service, 2> m_services;
    QByteArray m_xDisplay;
    std::unique_ptr<DetachedTask> m_search; ///< null while none is under way
    std::unique_ptr<XscreensaverDaemon> m_daemon;
    std::vector<std::function<void()>> m_waiting; ///< for the look that is under way
    int m_awaited = 0;                            ///< answers that are still to come
    std::function<void()> m_onChange;
};

} // namespace kestro
