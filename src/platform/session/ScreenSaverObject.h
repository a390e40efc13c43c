#pragma once

#include <QDBusContext>
#include <QObject>

namespace kestro {

class ScreenSaverService;

/// What stands on the bus for the service: the operations of the interface org.freedesktop.ScreenSaver, by
/// the names they have there. Owned by the service. Main thread. Tested by ScreenSaverServiceTest.
class ScreenSaverObject final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.ScreenSaver")

public:
    explicit ScreenSaverObject(ScreenSaverService& service);

public Q_SLOTS:
    /// Asks that no saver starts; a number to give that back with. An error where there are too many.
    uint Inhibit(const QString& application, const QString& reason);
    /// Gives it back. An error where it is none of the caller's.
    void UnInhibit(uint cookie);
    /// Whether the saver is shown.
    bool GetActive();
    /// Shows or ends it; whether that was done.
    bool SetActive(bool active);
    void Lock();
    /// As if the person had been there.
    void SimulateUserActivity();
    /// For how many seconds there was no input.
    uint GetSessionIdleTime();
    /// For how many seconds the saver has been shown; 0 while it is not.
    uint GetActiveTime();

Q_SIGNALS:
    void ActiveChanged(bool active);

private:
    ScreenSaverService& m_service;
};

} // namespace kestro
