#pragma once

#include "platform/display/View.h"

#include <memory>

class QUrl;

namespace kestro {

/// Shows one web page over its whole bounds. Made by a WebEngine. Main thread.
class WebView : public View {
public:
    using View::View;

    /// Loads `url` in the page's main frame. A page that cannot be loaded leaves the view black.
    virtual void loadRequest(const QUrl& url) = 0;
};

/// Makes web views. Main thread.
class WebEngine {
public:
    virtual ~WebEngine() = default;

    /// An empty page; owned by the caller.
    [[nodiscard]] virtual std::unique_ptr<WebView> makeWebView(const Rect& frame) = 0;
};

} // namespace kestro
