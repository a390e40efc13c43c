#pragma once

#include "platform/base/Result.h"
#include "platform/web/HelperLoad.h"
#include "platform/web/WebMessage.h"
#include "platform/web/WebView.h"

#include <QString>
#include <QStringList>
#include <QTimer>

#include <map>
#include <memory>

namespace kestro {

class ChildProcess;
class HelperView;
class ProfileFolder;
class WebChannel;

/// Where the web helper is, and how much patience there is with it.
struct HelperSettings {
    QString program;       ///< the helper; web content is unavailable where it is not there
    QStringList arguments; ///< for the helper
    QString needed;        ///< a file that the helper cannot do without
    int secondsOfPing = 2; ///< from one question whether it is still there to the next
    int mostUnanswered = 5;
    int mostUnansweredAtStart = 20;
    int mostRestarts = 3;
    HelperLoad most; ///< what its processes may take

    /// The helper of this package.
    [[nodiscard]] static HelperSettings ofPackage();
};

/// Whether such a helper can run here at all; the error says why not.
[[nodiscard]] Result<void> checkMachine(const HelperSettings& settings);

/// Shows web content through a helper process, which is started for the first page and then serves all of
/// them until this process ends, or until it is told to end the unused one. When the helper ends, no longer
/// answers, says more than anybody needs to or takes more memory or processes than it may, its pages are
/// black, the log says so, and it is started again a few times, with the same pages. Outlives its views. Main
/// thread.
class HelperEngine final : public WebEngine {
public:
    explicit HelperEngine(HelperSettings settings);
    ~HelperEngine() override;

    [[nodiscard]] bool isAvailable() override;
    void endUnused() override;
    [[nodiscard]] std::unique_ptr<WebView> makeWebView(const Rect& frame) override;

    /// Fetches nothing more for any page: the process is about to end.
    void stopFetching();

    // for views
    /// From now on the view is told of the helper; the helper is started when there is none.
    void join(HelperView& view);
    void leave(const HelperView& view);
    [[nodiscard]] bool isRunning() const { return m_channel != nullptr; }
    /// False when nothing was sent.
    bool send(const WebMessage& message);
    /// Memory for the helper with a copy of the bytes; closed where it has not yet taken what it got before.
    [[nodiscard]] Descriptor share(const QByteArray& bytes);

private:
    [[nodiscard]] bool start();
    void receive(const WebMessage& message);
    void hearPong(quint32 question);
    void ping();
    void lose(const QString& how);
    void end();

    const HelperSettings m_settings;
    std::map<quint32, HelperView*> m_views;
    quint32 m_lastNumber = 0;
    std::unique_ptr<ProfileFolder> m_home;
    std::unique_ptr<ChildProcess> m_process;
    std::unique_ptr<WebChannel> m_channel;
    QTimer m_pings;
    quint32 m_question = 0;   ///< of the ping that was sent last: nobody who has not read it can answer
    bool m_isAsked = false;   ///< that question, which counts once
    int m_heard = 0;          ///< messages since the ping before
    qint64 m_handedOver = 0;  ///< bytes that the helper got since it last answered
    bool m_isReady = false;   ///< the helper has said hello
    int m_unanswered = 0;     ///< pings, or turns without a hello
    int m_restarts = 0;       ///< in the life of this process
    bool m_isGivenUp = false; ///< no more restarts
    bool m_isExplained = false;
};

} // namespace kestro
