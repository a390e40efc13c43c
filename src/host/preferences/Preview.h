#pragma once

#include <functional>

class QWidget;

namespace kestro {

/// The saver as the window with the settings shows it: it runs in a widget, and has options to edit. What
/// does that takes as long to load as a window to open, so the program knows no more of it than this. Owned
/// by the window. Main thread.
class Preview {
public:
    virtual ~Preview() = default;

    /// What shows the saver; goes with this.
    [[nodiscard]] virtual QWidget& widget() = 0;

    /// Makes the saver, calls `made`, and runs it. Answers false when it cannot be made. Once.
    [[nodiscard]] virtual bool start(const std::function<void()>& made) = 0;
    [[nodiscard]] virtual bool isRunning() const = 0;

    /// Why the saver does not run just now.
    enum Pause : unsigned { OtherRuns = 1, Unseen = 2 };
    /// The saver runs while nothing keeps it from it; it goes on where it was.
    virtual void setPaused(Pause reason, bool paused) = 0;

    [[nodiscard]] virtual bool hasOptions() const = 0;
    /// Opens the sheet of the options over a window; nothing while it is open, or where there are none.
    virtual void openOptions(QWidget& over) = 0;

    /// Stops the saver for good, and all that its options opened.
    virtual void end() = 0;
};

} // namespace kestro
