#pragma once

#include "platform/display/view/Picture.h"
#include "platform/display/view/Window.h"
#include "presentation/AfterImageView.h"

#include <memory>

namespace kestro {

class Screen;

/// A picture of words above everything that a saver shows, in a window of its own. Owned by what writes them.
/// Main thread. Tested by CaptionTest and AnnouncementTest.
class WordsWindow final {
public:
    /// `kind` names the window in traces.
    explicit WordsWindow(QString kind);
    ~WordsWindow();
    WordsWindow(const WordsWindow&) = delete;
    WordsWindow& operator=(const WordsWindow&) = delete;

    /// Shows `picture` with its lower left corner at `origin` of the screen, solid; a null one hides it.
    void show(Screen& screen, const Picture& picture, Point origin);
    /// Lays it elsewhere on its screen. Nothing where it is not shown.
    void moveTo(Point origin);
    /// Lays it above windows that came later. Nothing where it is not shown.
    void raise();
    void setAlpha(float alpha);
    void hide();

    /// The screen that it is shown on; null where it is not.
    [[nodiscard]] Screen* screen() const { return m_window ? m_window->screen() : nullptr; }
    [[nodiscard]] const Window* window() const { return m_window.get(); }

private:
    QString m_kind;
    AfterImageView m_view{{{0, 0}, {1, 1}}};
    std::unique_ptr<Window> m_window;
};

} // namespace kestro
