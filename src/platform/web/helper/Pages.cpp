#include "platform/web/helper/Pages.h"

#include <utility>

namespace kestro {

Pages::Pages(Descriptor channel, const QString& ruffleFolder)
    : m_view(&m_engine, QUrl(QStringLiteral("qrc:/web/Page.qml")))
    , m_channel(
          std::move(channel), WebSpeaker::Saver, [this](WebMessage message) { receive(std::move(message)); },
          [] {}) // the guardian ends us
    , m_surroundings{m_view, ruffleFolder,
                     [this](const WebMessage& message) { return m_channel.send(message); }}
{
    WebMessage hello;
    hello.kind = WebMessage::Kind::Hello;
    m_channel.send(hello);
}

Page& Pages::page(quint32 number)
{
    auto& page = m_pages[number];
    if (!page) page = std::make_unique<Page>(number, m_surroundings);
    return *page;
}

void Pages::receive(WebMessage message)
{
    switch (message.kind) {
    case WebMessage::Kind::LoadMovie:
        return page(message.view).loadMovie(QUrl::fromEncoded(message.text));
    case WebMessage::Kind::LoadPage:
        return page(message.view).loadPage(QUrl::fromEncoded(message.text));
    case WebMessage::Kind::Fetched:
        if (const auto known = m_pages.find(message.view); known != m_pages.end())
            known->second->fetched(message);
        return;
    case WebMessage::Kind::Resize:
        return page(message.view).resize(std::move(message));
    case WebMessage::Kind::Mute:
        return page(message.view).setMuted(message.flag);
    case WebMessage::Kind::Release:
        if (const auto known = m_pages.find(message.view); known != m_pages.end())
            known->second->release(message.generation, message.slot);
        return;
    case WebMessage::Kind::Stop:
        m_pages.erase(message.view);
        return;
    case WebMessage::Kind::Ping:
        message.kind = WebMessage::Kind::Pong;
        m_channel.send(message);
        return;
    case WebMessage::Kind::Hello:
    case WebMessage::Kind::Pong:
    case WebMessage::Kind::Frame:
    case WebMessage::Kind::Note:
    case WebMessage::Kind::Fetch:
        return; // our own words
    }
}

} // namespace kestro
