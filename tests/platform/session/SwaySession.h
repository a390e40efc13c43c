#pragma once

#include <QByteArray>
#include <QProcess>
#include <QTemporaryDir>

namespace kestro {

/// A real Wayland compositor without a screen of glass: sway, as "nobody" where the tests run as root, which
/// it refuses to be. Ends with this.
class SwaySession final {
public:
    SwaySession();
    ~SwaySession();
    SwaySession(const SwaySession&) = delete;
    SwaySession& operator=(const SwaySession&) = delete;

    /// As WAYLAND_DISPLAY has it; empty when it did not come up.
    [[nodiscard]] const QByteArray& display() const { return m_display; }
    /// The protocol by which it can tell of idle seats; of two the newer one, which sway has since 1.8.
    [[nodiscard]] QString idleProtocol() const;
    /// The person presses a key, on a keyboard that is there for as long; whether that could be done.
    [[nodiscard]] bool press() const;
    /// Ends it as a crash would.
    void kill();

private:
    QTemporaryDir m_folder;
    QProcess m_process;
    QByteArray m_display;
};

} // namespace kestro
