#pragma once

#include "platform/base/Clock.h"
#include "platform/base/Log.h"
#include "platform/base/Random.h"
#include "platform/display/desktop/ImageDesktop.h"
#include "platform/display/desktop/ManualTimerSource.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/surface/Surface.h"
#include "platform/display/view/Window.h"
#include "platform/web/HelperEngine.h"
#include "support/WaitUntil.h"

#include <QUrl>

#include <gtest/gtest.h>

namespace kestro {

inline const QColor red(Qt::red);
inline const QColor green(Qt::green);
inline const QColor blue(Qt::blue);
inline const QColor black(Qt::black);

/// One screen of 40 by 30 points at two pixels a point, a window over it, and a helper that has no browser.
class HelperEngineTest : public testing::Test {
protected:
    HelperEngineTest()
    {
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
        settings.program = QStringLiteral(KESTRO_FAKE_HELPER);
        settings.secondsOfPing = 1;
        settings.mostUnanswered = 1;
        window.setContentView(&ground);
        window.makeKeyAndOrderFront();
    }

    std::unique_ptr<WebView> show(HelperEngine& engine, const char* address)
    {
        auto view = engine.makeWebView({{0, 0}, {20, 30}});
        ground.addSubview(*view);
        view->loadRequest(QUrl(QString::fromLatin1(address)));
        return view;
    }

    QColor colourAt(int x, int y)
    {
        Screen& screen = *desktop.screens().front();
        screen.update();
        return screen.surface().canvas().pixelColor(x, y);
    }

    bool becomes(const QColor& colour)
    {
        return waitUntil([&] { return colourAt(10, 10) == colour; });
    }

    int logged(const char* fragment)
    {
        return static_cast<int>(lines.filter(QString::fromUtf8(fragment)).size());
    }

    QStringList lines;
    LogCapture log{[this](const QString& line) { lines.append(line); }};
    HelperSettings settings;
    ManualClock clock;
    ManualTimerSource timers{clock};
    SeededRandom random{1};
    ImageDesktop desktop{{Rect{{0, 0}, {40, 30}}}, 2.0, timers, clock, random};
    View ground{{{0, 0}, {40, 30}}};
    Window window{{{{0, 0}, {40, 30}}, desktop.screens().front(), QStringLiteral("test")}};
};

} // namespace kestro
