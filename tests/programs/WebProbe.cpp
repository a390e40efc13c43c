// Shows one address in a web view, because the saver itself hands web views Flash movies alone. Each line
// that it reads is a wish: "picture" writes what is shown to the file, "again" shows the address in another
// view and ends the one before. It answers "done" to each, and ends at the end of its input.
//
// usage: web_probe URL PICTURE

#include "platform/base/Clock.h"
#include "platform/base/Random.h"
#include "platform/display/ImageDesktop.h"
#include "platform/display/QtTimerSource.h"
#include "platform/display/Screen.h"
#include "platform/display/Surface.h"
#include "platform/display/Window.h"
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
    Probe(QUrl address, QString picture)
        : m_address(std::move(address))
        , m_picture(std::move(picture))
    {
        m_window.makeKeyAndOrderFront();
    }

    [[nodiscard]] bool isAvailable() { return m_engine.isAvailable(); }

    void show()
    {
        m_view = m_engine.makeWebView(frame);
        m_window.setContentView(m_view.get());
        m_view->loadRequest(m_address);
    }

    void write()
    {
        m_screen.update();
        m_screen.surface().canvas().save(m_picture);
    }

private:
    const QUrl m_address;
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
    Probe probe(QUrl(QString::fromLocal8Bit(argv[1])), QString::fromLocal8Bit(argv[2]));
    if (!probe.isAvailable()) return 1;
    probe.show();
    QSocketNotifier wishes(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&wishes, &QSocketNotifier::activated, &wishes, [&] {
        char wish[16] = {};
        if (read(STDIN_FILENO, wish, sizeof wish - 1) <= 0) return QGuiApplication::quit();
        if (QByteArray(wish) == "picture\n") probe.write();
        if (QByteArray(wish) == "again\n") probe.show();
        std::puts("done");
        std::fflush(stdout);
    });
    return QGuiApplication::exec();
}
