#pragma once

#include "idle/IdleAutostart.h"
#include "idle/IdleOptions.h"
#include "idle/IdleRemote.h"

#include <QString>

#include <functional>
#include <optional>

namespace kestro {

/// The person's switch for the saver's start by itself: the options in kestro.conf, the session's autostart,
/// and the service that runs now. Owned by the window that has the switch. Main thread.
class IdleSwitch final {
public:
    /// Where its parts are.
    struct Places {
        QString configuration; ///< the file
        IdleAutostart autostart;
        QString program; ///< what serves, when it is run with the word "idle"
        QDBusConnection bus;
    };

    explicit IdleSwitch(Places places);
    /// The user's own.
    [[nodiscard]] static Places placesOfUser();

    [[nodiscard]] IdleOptions options() const;
    /// Stores the options, for the next session too, and starts, tells or ends the service. The error is one
    /// line; what could be done before it stays done.
    [[nodiscard]] Result<void> set(const IdleOptions& options);
    /// Calls `handler` with the service's status now and whenever it changes; with nothing while none runs.
    void watchStatus(IdleRemote::StatusHandler handler);

private:
    [[nodiscard]] Result<void> store(const IdleOptions& options) const;
    void startService() const;

    Places m_places;
    IdleRemote m_service;
};

} // namespace kestro
