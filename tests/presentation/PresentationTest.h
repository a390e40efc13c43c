#pragma once

#include "platform/base/Clock.h"
#include "platform/base/Random.h"
#include "platform/display/desktop/ImageDesktop.h"
#include "platform/display/desktop/ManualTimerSource.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/surface/image/ImageSurface.h"
#include "platform/display/view/Window.h"
#include "platform/movie/MemoryMovie.h"
#include "platform/web/WebView.h"
#include "presentation/MovieFrame.h"

#include <QUrl>

#include <gtest/gtest.h>
#include <memory>

namespace kestro {

/// A web view that only remembers what it was told.
class WebViewDouble final : public WebView {
public:
    using WebView::WebView;
    void loadMovie(const QUrl& url) override { played = url; }
    void loadRequest(const QUrl& url) override { loaded = url; }
    void setMuted(bool muted) override { isMuted = muted; }
    void stopLoading() override { isStopped = true; }

    QUrl played; ///< as an SWF alone
    QUrl loaded;
    bool isMuted = true;
    bool isStopped = false;
};

/// Makes such views, and knows the last one made.
class WebEngineDouble final : public WebEngine {
public:
    bool isAvailable() override { return true; }
    void endUnused() override {}
    std::unique_ptr<WebView> makeWebView(const Rect& frame) override
    {
        auto view = std::make_unique<WebViewDouble>(frame);
        last = view.get();
        return view;
    }

    WebViewDouble* last = nullptr;
};

/// A desk of one image, and movies made up by the test.
class PresentationTest : public testing::Test {
protected:
    std::shared_ptr<MemoryMovie> movie(const MemoryMovieDescription& description = {})
    {
        return std::make_shared<MemoryMovie>(QUrl(QStringLiteral("http://m/a.mov")), description, clock);
    }

    ManualClock clock;
    ManualTimerSource timers{clock};
    SeededRandom random{1};
    ImageDesktop desktop{{Rect{{0, 0}, {1920, 1200}}}, 1.0, timers, clock, random};
    WebEngineDouble web;
};

} // namespace kestro
