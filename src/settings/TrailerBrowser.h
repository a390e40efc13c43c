#pragma once

namespace kestro {

class URLListReceiver;

/// The panel that shows the scanned trailers, as whoever opens it knows it. Main thread.
class TrailerBrowser {
public:
    virtual ~TrailerBrowser() = default;

    /// Shows the panel in front; what is chosen there goes to `saver`, which must live until close().
    virtual void showPanel(URLListReceiver& saver) = 0;
    /// Closes the panel, which ends a crawl that it started and saves the list; nothing when it was never
    /// shown.
    virtual void close() = 0;
};

} // namespace kestro
