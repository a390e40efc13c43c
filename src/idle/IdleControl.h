#pragma once

#include "idle/IdleStatus.h"

#include <QDBusConnection>
#include <QObject>

#include <functional>

namespace kestro {

/// How other programs of the person's session reach the idle service: the object /org/kestro/Idle of the name
/// org.kestro.Idle on the session's bus. Owned by the program. Main thread. Tested by IdleSwitchTest.
class IdleControl final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kestro.Idle1")

public:
    struct Handlers {
        std::function<IdleStatus()> status;
        std::function<void()> show;
        std::function<void()> reload; ///< the options are others
        std::function<void()> quit;
    };

    IdleControl(QDBusConnection bus, Handlers handlers);
    ~IdleControl() override;

    /// Takes the name; false where another service has it.
    [[nodiscard]] bool begin();
    /// Tells whoever listens that the status may have changed; once for all changes of one event loop turn,
    /// and never what was told last.
    void tellChange();

public Q_SLOTS:
    Q_SCRIPTABLE QString Status() const;
    Q_SCRIPTABLE void Show();
    Q_SCRIPTABLE void Reload();
    Q_SCRIPTABLE void Quit();

Q_SIGNALS:
    Q_SCRIPTABLE void Changed(const QString& status);

private:
    QDBusConnection m_bus;
    Handlers m_handlers;
    QString m_told;
    bool m_isToTell = false;
};

} // namespace kestro
