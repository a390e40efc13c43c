#pragma once

#include <QList>
#include <QString>

#include <functional>

namespace kestro {

/// What may keep a saver from being shown.
enum class HindranceKind {
    Inhibited, ///< a program asked the desktop not to
    Locked,
    Asleep, ///< the machine goes to sleep
    LidClosed,
    Battery, ///< the person's rule for batteries and power saving
    Microphone,
    Camera,
    GamePad,
    FullScreen, ///< a window that covers the screen and plays sound
};

/// The kind in one word, as machine output has it: "inhibited", "lidClosed".
[[nodiscard]] QString nameOf(HindranceKind kind);

/// What a program says of itself or of its reason, fit to be shown: on one line, and no longer than
/// Bounds::inhibitorCharacters.
[[nodiscard]] QString plainWords(const QString& words);

/// One reason why no saver is to be shown now.
struct Hindrance {
    HindranceKind kind = HindranceKind::Inhibited;
    QString who; ///< a program's name as its maker or the service wrote it, on one line; empty for nobody
    QString why; ///< likewise its reason; empty for none

    bool operator==(const Hindrance&) const = default;
};

/// Something of the session that may be a reason not to show a saver, kept up to date as far as a service
/// tells of changes. What is not known, or not told in time, is no reason. Owned by the program that asks.
/// Main thread. Tested by IdleStatusTest.
class SessionFact {
public:
    virtual ~SessionFact() = default;

    /// How long a service may take to answer; then it has nothing to say.
    static constexpr int patience = 1000; // milliseconds

    /// Finds out anew what nobody tells of. `onAnswer` is called once, from here or from the event loop, at
    /// the latest after `patience`, whatever a service does; not after this is destroyed.
    virtual void ask(std::function<void()> onAnswer) = 0;
    /// What is known now.
    [[nodiscard]] virtual QList<Hindrance> hindrances() const = 0;
    /// Called when hindrances() has changed, by itself or because it was asked.
    void setChangeHandler(std::function<void()> handler) { m_onChange = std::move(handler); }

protected:
    void changed() const
    {
        if (m_onChange) m_onChange();
    }

private:
    std::function<void()> m_onChange;
};

} // namespace kestro
