// Shows a picture on every monitor through the real desktop, and writes a line for everything that happens to
// it: what the end-to-end tests run. Each screen is blue (the first) or green with a white square at its
// lower left; each key press moves the squares 100 points to the right, and a click loses the OpenGL context,
// if there is any.

#include "platform/base/Clock.h"
#include "platform/base/Random.h"
#include "platform/display/desktop/Cursor.h"
#include "platform/display/desktop/QtDesktop.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/gl/OpenGLDevice.h"
#include "platform/display/surface/Surface.h"
#include "platform/display/view/Painter.h"
#include "platform/display/view/View.h"
#include "platform/display/view/Window.h"

#include <QGuiApplication>

#include <cstdio>
#include <map>
#include <memory>

namespace kestro {

namespace {

class ColourView final : public View {
public:
    ColourView(Size size, const QColor& colour)
        : View({{0, 0}, size})
        , m_colour(colour)
    {
    }
    void drawRect(Painter& painter, const Rect& rect) override { painter.fill(rect, m_colour); }

private:
    QColor m_colour;
};

/// What one screen shows.
struct Show {
    explicit Show(Screen& screen)
        : groundView(screen.frame().size, screen.frame().origin == Point{} ? Qt::blue : Qt::green)
        , squareView({40, 40}, Qt::white)
        , ground({screen.frame(), &screen, QStringLiteral("ground")})
        , square({{screen.frame().origin, {40, 40}}, &screen, QStringLiteral("square")})
    {
        ground.setContentView(&groundView);
        square.setContentView(&squareView);
        ground.orderFront();
        square.orderFront();
    }
    void advance() { square.setFrameOrigin({square.frame().origin.x + 100, square.frame().origin.y}); }

    ColourView groundView;
    ColourView squareView;
    Window ground;
    Window square;
};

void tell(const char* what, const Rect& rect)
{
    std::printf("%s %g %g %g %g\n", what, double{rect.origin.x}, double{rect.origin.y},
                double{rect.size.width}, double{rect.size.height});
    std::fflush(stdout);
}

class Probe final {
public:
    Probe()
    {
        for (Screen* screen : m_desktop.screens())
            add(*screen, "screen");
        m_desktop.setScreenObserver({[this](Screen& screen) { add(screen, "added"); },
                                     [this](Screen& screen) {
                                         tell("resized", screen.frame());
                                         m_shows[&screen] = std::make_unique<Show>(screen);
                                     },
                                     [this](Screen& screen) {
                                         tell("removed", screen.frame());
                                         m_shows.erase(&screen);
                                     }});
        m_desktop.cursor().hide();
        m_desktop.showSurfaces();
    }

private:
    void add(Screen& screen, const char* what)
    {
        m_shows[&screen] = std::make_unique<Show>(screen);
        screen.surface().setInputHandler([this](const InputEvent& event) { handle(event); });
        tell(what, screen.frame());
    }

    void handle(const InputEvent& event)
    {
        const char* const names[] = {"key", "button", "motion", "close"};
        std::printf("%s %g %g\n", names[static_cast<int>(event.kind)], event.position.x(),
                    event.position.y());
        std::fflush(stdout);
        if (event.kind == InputEvent::Kind::Button) loseOpenGL();
        if (event.kind != InputEvent::Kind::Key) return;
        for (const auto& show : m_shows)
            show.second->advance();
    }

    void loseOpenGL()
    {
        const auto device = std::static_pointer_cast<OpenGLDevice>(m_desktop.openGL());
        if (device) device->lose();
    }

    SystemClock m_clock;
    SystemRandom m_random;
    QtDesktop m_desktop{m_clock, m_random};
    std::map<Screen*, std::unique_ptr<Show>> m_shows;
};

} // namespace

} // namespace kestro

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    const kestro::Probe probe;
    return QGuiApplication::exec();
}
