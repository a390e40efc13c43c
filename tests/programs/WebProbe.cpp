// Shows one address in a web view, because the saver itself hands web views Flash movies alone. Each line
// that it reads is a wish: "picture" writes what is shown to the file, an address is shown in another view,
// and the one before ends. It answers "done" to each, and ends at the end of its input.
//
// usage: web_probe URL PICTURE

#include "platform/base/Clock.h"
#include "platform/base/Random.h"
#include "platform/display/desktop/ImageDesktop.h"
#include "platform/display/desktop/QtTimerSource.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/surface/Surface.h"
#include "platform/display/view/Window.h"
#include "platform/web/HelperEngine.h"

#include <QGuiApplication>
#include <QSocketNotifier>
#include <QUrl>

#include <cstdio>
#include <memory>
#include <unistd.h>

using namespace kestro;

namespace {

const Rect frame{{0, 0}, {320, 240}};

/// The probe's screen, and the view on it.
class Probe {
public:
    explicit Probe(QString picture)
        : m_picture(std::move(picture))
    {
        m_window.makeKeyAndOrderFront();
    }

    [[nodiscard]] bool isAvailable() { return m_engine.isAvailable(); }

    void show(const QByteArray& address)
    {
        m_view = m_engine.makeWebView(frame);
        m_window.setContentView(m_view.get());
        m_view->loadRequest(QUrl(QString::fromLocal8Bit(address)));
    }

    void write()
    {
        m_screen.update();
        m_screen.surface().canvas().save(m_picture);
    }

private:
    const QString m_picture;
    SystemClock m_clock;
    SystemRandom m_random;
    QtTimerSource m_timers;
    ImageDesktop m_desktop{{frame}, 1.0, m_timers, m_clock, m_random};
    HelperEngine m_engine{HelperSettings::ofPackage()};
    Screen& m_screen = *m_desktop.screens().front();
    Window m_window{{frame, &m_screen, QStringLiteral("probe")}};
    std::unique_ptr<WebView> m_view;
};

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) return 2;
    const QGuiApplication application(argc, argv);
    Probe probe(QString::fromLocal8Bit(argv[2]));
    if (!probe.isAvailable()) return 1;
    probe.show(argv[1]);
    QSocketNotifier wishes(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&wishes, &QSocketNotifier::activated, &wishes, [&] {
        char line[1024] = {};
        if (read(STDIN_FILENO, line, sizeof line - 1) <= 0) return QGuiApplication::quit();
        const QByteArray wish = QByteArray(line).trimmed();
        wish == "picture" ? probe.write() : probe.show(wish);
        std::puts("done");
        std::fflush(stdout);
    });
    return QGuiApplication::exec();
}
