#pragma once

#include "platform/web/WebChannel.h"
#include "platform/web/helper/Page.h"

#include <QQmlComponent>
#include <QQmlEngine>

#include <map>
#include <memory>

namespace kestro {

/// All pages of the saver: makes and ends them, hands each what the saver says to it, and answers the saver's
/// question whether anybody is there. Owned by the program; main thread. Tested by test_web.
class Pages final {
public:
    /// `channel` is the line to the saver, `ruffleFolder` where the Flash player lies.
    Pages(Descriptor channel, const QString& ruffleFolder);

private:
    void receive(WebMessage message);
    [[nodiscard]] Page& page(quint32 number);

    QQmlEngine m_engine;
    QQmlComponent m_view;
    WebChannel m_channel;
    const Page::Surroundings m_surroundings;
    std::map<quint32, std::unique_ptr<Page>> m_pages;
};

} // namespace kestro
