#pragma once

#include "platform/base/Result.h"

#include <QImage>
#include <QRect>
#include <QSize>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

class QSocketNotifier;
struct xcb_connection_t;

namespace kestro {

class PixmapPixels;

/// An X11 window that another program draws in and nobody sees: it lies off screen, the X server keeps its
/// pixels, and no input reaches it. It works on whatever this program itself is shown, as long as there is an
/// X server; on a connection of its own, with which the server takes all of it away, however this process
/// ends. Owned by who shows its pixels. Main thread; pixels. Tested by HackHostTest.
class HiddenWindow final {
public:
    /// What programs are to draw in it with.
    enum class Drawing { Plain, OpenGL };
    struct Handlers {
        std::function<void()> drawn; ///< something was drawn; not again until the pixels were asked for
        std::function<void()> lost;  ///< the X server went away; once
    };

    /// A black window; the error is one line that says what the display lacks.
    [[nodiscard]] static Result<std::unique_ptr<HiddenWindow>> create(QSize size, Drawing drawing,
                                                                      Handlers handlers);
    ~HiddenWindow();
    HiddenWindow(const HiddenWindow&) = delete;
    HiddenWindow& operator=(const HiddenWindow&) = delete;

    /// Its number on the display.
    [[nodiscard]] std::uint32_t id() const { return m_window; }
    [[nodiscard]] QSize size() const { return m_size; }
    /// Gives it another size, at least one pixel; the program that draws there is told by the server. Its
    /// pixels are null from then on where memory is short.
    void resize(QSize size);

    /// What is drawn in it now, RGB32. Only what was drawn since the last call is fetched.
    [[nodiscard]] const QImage& pixels();

private:
    HiddenWindow(xcb_connection_t* connection, int screenNumber, Handlers handlers);

    [[nodiscard]] QString whatIsMissing() const;
    [[nodiscard]] bool open(QSize size, Drawing drawing);
    void createWindows(std::uint32_t visual);
    void namePixmap();
    void readEvents();
    bool drainEvents();
    void postDrawn();
    void postLost();
    [[nodiscard]] std::vector<QRect> takeDamage();

    xcb_connection_t* m_connection;
    int m_screenNumber;
    Handlers m_handlers;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::uint32_t m_window = 0;
    std::uint32_t m_pixmap = 0;
    std::uint32_t m_damage = 0;
    std::uint32_t m_region = 0; ///< takes what was drawn
    QSize m_size;
    std::unique_ptr<PixmapPixels> m_pixels;
    bool m_isWhole = true; ///< all of the pixels are to be fetched
    bool m_isStale = true; ///< some of them are
    bool m_isLost = false;
};

} // namespace kestro
