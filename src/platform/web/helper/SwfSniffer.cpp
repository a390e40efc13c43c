#include "platform/web/helper/SwfSniffer.h"

#include "platform/web/helper/SwfKind.h"

#include <QNetworkReply>

#include <utility>

namespace kestro {

namespace {

constexpr int patience = 10000; // milliseconds

} // namespace

SwfSniffer::SwfSniffer() = default;

SwfSniffer::~SwfSniffer() = default;

void SwfSniffer::ask(const QUrl& url, std::function<void(bool isSwf)> onAnswer)
{
    if (m_reply) std::exchange(m_reply, nullptr)->deleteLater();
    m_onAnswer = std::move(onAnswer);
    QNetworkRequest request(url);
    request.setTransferTimeout(patience);
    // The site sent the browser here, and leads the browser on from here itself.
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    m_reply = m_network.get(request);
    m_reply->setReadBufferSize(swfSignatureLength);
    QObject::connect(m_reply, &QNetworkReply::readyRead, &m_network, [this] { look(); });
    QObject::connect(m_reply, &QNetworkReply::finished, &m_network, [this] { look(); });
}

void SwfSniffer::look()
{
    if (!m_reply || (!m_reply->isFinished() && m_reply->bytesAvailable() < swfSignatureLength)) return;
    QNetworkReply* const reply = std::exchange(m_reply, nullptr);
    const bool isSwf = hasSwfSignature(reply->read(swfSignatureLength));
    reply->abort();
    reply->deleteLater();
    if (const auto onAnswer = std::exchange(m_onAnswer, nullptr)) onAnswer(isSwf);
}

} // namespace kestro
