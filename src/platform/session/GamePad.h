#pragma once

#include <QString>

#include <memory>
#include <optional>

namespace kestro {

/// A game pad or joystick of the kernel's, held open so that it keeps what was done on it: when it is looked
/// at, the time of the last press is there, and nothing wakes this process in between. Buttons and hats
/// count; sticks do not, because many tremble for ever. Main thread. Tested by GamePadFactTest.
class GamePad final {
public:
    /// The one that stands at `path`; null where it is none or cannot be read.
    [[nodiscard]] static std::unique_ptr<GamePad> open(const QString& path);

    /// Takes the events from `descriptor`, which is read without blocking, and closes it at the end.
    GamePad(int descriptor, QString name);
    ~GamePad();
    GamePad(const GamePad&) = delete;
    GamePad& operator=(const GamePad&) = delete;

    /// As its maker calls it.
    [[nodiscard]] const QString& name() const { return m_name; }
    /// Reads what it has kept; false when it has been unplugged.
    [[nodiscard]] bool look();
    /// The last press or release that was read, in seconds of the monotonic clock.
    [[nodiscard]] std::optional<double> lastMoved() const { return m_lastMoved; }

private:
    int m_descriptor;
    QString m_name;
    std::optional<double> m_lastMoved;
};

} // namespace kestro
