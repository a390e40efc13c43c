#pragma once

#include <QNetworkAccessManager>

#include <functional>
#include <memory>

class QNetworkReply;

namespace kestro {

/// Finds out whether what a site does not tell the type of is an SWF, from its first bytes alone. One
/// question at a time. Owned by its page; main thread.
class SwfSniffer final {
public:
    SwfSniffer();
    ~SwfSniffer();

    /// Calls `onAnswer` once, later; false as well when nothing comes. A question before is dropped.
    void ask(const QUrl& url, std::function<void(bool isSwf)> onAnswer);

private:
    void look();

    QNetworkAccessManager m_network;
    std::function<void(bool)> m_onAnswer;
    QNetworkReply* m_reply = nullptr; ///< owned by the network, until it is looked at
};

} // namespace kestro
