#pragma once

#include <QTimer>

#include <chrono>
#include <functional>
#include <optional>

namespace kestro {

/// Tells whether the X server has switched the displays off, all of them, by its DPMS extension. The server
/// tells nobody when it does: it is asked again and again. Never waits for it: what is asked at one look is
/// answered by the next, however slow the server is. One without the extension, or without displays that
/// could be switched, is asked once. Owned by a surface's watch. Main thread. Tested by test_asleep.
class DisplayPower final {
public:
    /// `onChange` is called when they are switched, from the event loop; on from the start on.
    explicit DisplayPower(std::function<void(bool isOn)> onChange);
    ~DisplayPower();
    DisplayPower(const DisplayPower&) = delete;
    DisplayPower& operator=(const DisplayPower&) = delete;

    /// Whether it looks; not at first. What changed meanwhile is told soon after it looks again.
    void setLooking(bool isLooking);

    [[nodiscard]] bool isOn() const { return m_isOn; }

    /// A second or two of a movie for nobody cost nothing beside the minutes after which displays go off.
    static constexpr std::chrono::milliseconds whileOn{1000};
    /// Two looks are a quarter of a second, and a display that comes back takes longer than that to light up.
    static constexpr std::chrono::milliseconds whileOff{125};

private:
    enum class Question { Extension, Capable, Level, None };

    void look();
    void ask();
    void take(const void* reply);
    void pace();

    std::function<void(bool)> m_onChange;
    QTimer m_timer;
    Question m_question = Question::Extension;
    std::optional<unsigned int> m_asked; ///< the number of the request that is not answered yet
    bool m_isOn = true;
    bool m_isFresh = false; ///< that was heard since it looks
};

} // namespace kestro
