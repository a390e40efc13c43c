#pragma once

#include "platform/session/BusObject.h"
#include "platform/session/KeptFact.h"

#include <QDBusUnixFileDescriptor>
#include <QTimer>

namespace kestro {

/// Whether the machine goes to sleep. logind is asked to wait a moment with it, so that the saver is gone
/// before; it waits until release(), and no longer than `patience`. Main thread.
class SleepFact final : public KeptFact {
public:
    explicit SleepFact(const QDBusConnection& systemBus);

    /// Answers at once: logind tells of everything.
    void ask(std::function<void()> onAnswer) override;
    /// The saver is gone: the machine may sleep. Nothing where it does not want to.
    void release();
    /// Whether logind would wait for us.
    [[nodiscard]] bool isWaitedFor() const { return m_delay.isValid(); }

private:
    void told(bool isAboutToSleep);
    void takeDelay();

    BusObject m_logind;
    QDBusUnixFileDescriptor m_delay; ///< while it is open, logind waits
    QTimer m_bound;
    bool m_isAsleep = false;
};

} // namespace kestro
