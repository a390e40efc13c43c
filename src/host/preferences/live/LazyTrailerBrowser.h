#pragma once

#include "settings/TrailerBrowser.h"

#include <functional>
#include <memory>

namespace kestro {

/// A browser of trailers that is made when it is first shown, so that a window which never shows it reads no
/// list. Owned by the program; what makes it must outlive it. Main thread.
class LazyTrailerBrowser final : public TrailerBrowser {
public:
    using Maker = std::function<std::unique_ptr<TrailerBrowser>()>;

    explicit LazyTrailerBrowser(Maker maker)
        : m_maker(std::move(maker))
    {
    }

    void showPanel(URLListReceiver& saver) override
    {
        if (!m_browser) m_browser = m_maker();
        m_browser->showPanel(saver);
    }
    void close() override
    {
        if (m_browser) m_browser->close();
    }

private:
    Maker m_maker;
    std::unique_ptr<TrailerBrowser> m_browser;
};

} // namespace kestro
