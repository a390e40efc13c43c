// Makes a window as another program would, draws in it through the desktop of a given window, moves it over
// the second monitor, destroys it, and writes a line for each: what the end-to-end tests run.

#include "platform/base/Clock.h"
#include "platform/base/Random.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/desktop/WindowDesktop.h"
#include "platform/display/surface/Surface.h"

#include <QGuiApplication>

#include <cstdio>
#include <xcb/xcb.h>

namespace kestro {

namespace {

/// The other program: a connection and a window of its own.
class Giver final {
public:
    Giver()
        : m_connection(xcb_connect(nullptr, nullptr))
        , m_window(xcb_generate_id(m_connection))
    {
        const auto* screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
        const std::uint32_t isOverride = 1;
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_window, screen->root, 100, 80, 300, 200, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, XCB_CW_OVERRIDE_REDIRECT,
                          &isOverride);
        xcb_map_window(m_connection, m_window);
        sync();
    }
    ~Giver() { xcb_disconnect(m_connection); }
    Giver(const Giver&) = delete;
    Giver& operator=(const Giver&) = delete;

    [[nodiscard]] std::uint32_t window() const { return m_window; }
    void move()
    {
        const std::uint32_t place[] = {1000, 50, 400, 250};
        xcb_configure_window(m_connection, m_window,
                             XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                                 XCB_CONFIG_WINDOW_HEIGHT,
                             place);
        sync();
    }
    void destroy()
    {
        xcb_destroy_window(m_connection, m_window);
        sync();
    }

private:
    void sync()
    {
        std::free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    }

    xcb_connection_t* m_connection;
    xcb_window_t m_window;
};

void tell(const char* what, const WindowDesktop& desktop, const Screen& screen)
{
    const Rect frame = screen.frame();
    const QSize pixels = screen.surface().pixelSize();
    std::printf("%s %g %g %g %g pixels %d %d %s\n", what, double{frame.origin.x}, double{frame.origin.y},
                double{frame.size.width}, double{frame.size.height}, pixels.width(), pixels.height(),
                desktop.isFirst(screen) ? "first" : "other");
    std::fflush(stdout);
}

int run()
{
    Giver giver;
    const SystemClock clock;
    SystemRandom random;
    const auto made = WindowDesktop::create(giver.window(), clock, random);
    if (!made) return 1;
    WindowDesktop& desktop = *made.value();
    tell("screen", desktop, *desktop.mainScreen());
    desktop.setScreenObserver({{},
                               [&](Screen& screen) {
                                   tell("resized", desktop, screen);
                                   giver.destroy();
                               },
                               {}});
    desktop.setGoneHandler([] {
        std::puts("gone");
        QGuiApplication::quit();
    });
    desktop.showSurface();
    giver.move();
    QGuiApplication::exec();
    const bool isRefused = !WindowDesktop::create(giver.window(), clock, random);
    std::puts(isRefused ? "refused" : "accepted");
    return 0;
}

} // namespace

} // namespace kestro

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    return kestro::run();
}
