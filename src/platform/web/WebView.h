#pragma once

#include "platform/display/view/View.h"

#include <memory>

class QUrl;

namespace kestro {

/// Shows one web page, or one SWF, over its whole bounds. Made by a WebEngine. Main thread.
class WebView : public View {
public:
    using View::View;

    /// Plays the SWF at `url`: what is none by its first bytes, a page above all, leaves the view black.
    virtual void loadMovie(const QUrl& url) = 0;
    /// Loads `url`, a page or an SWF, in the page's main frame. What cannot be loaded leaves the view black.
    virtual void loadRequest(const QUrl& url) = 0;
    /// Whether the page's sound is off; it is until it is asked for.
    virtual void setMuted(bool muted) = 0;
    /// Ends the page for good: it is black and silent, and costs nothing any more.
    virtual void stopLoading() = 0;
};

/// Makes web views. Main thread.
class WebEngine {
public:
    virtual ~WebEngine() = default;

    /// Whether web content can be shown in this process; where it cannot, the log says why, once.
    [[nodiscard]] virtual bool isAvailable() = 0;
    /// Ends what draws pages, where there is no page now. The next page begins it anew.
    virtual void endUnused() = 0;
    /// An empty page; owned by the caller.
    [[nodiscard]] virtual std::unique_ptr<WebView> makeWebView(const Rect& frame) = 0;
};

} // namespace kestro
