#include "platform/web/HelperEngine.h"

#include "platform/base/Bounds.h"
#include "platform/base/Log.h"
#include "platform/base/Paths.h"
#include "platform/web/HelperLoad.h"
#include "platform/web/HelperProcess.h"
#include "platform/web/HelperView.h"
#include "platform/web/ProfileFolder.h"
#include "platform/web/SharedBytes.h"
#include "platform/web/WebChannel.h"

#include <QFileInfo>
#include <QRandomGenerator>

#include <unistd.h>
#include <utility>

namespace kestro {

HelperSettings HelperSettings::ofPackage()
{
    HelperSettings settings;
    settings.program = packageLibraries() + QStringLiteral("/kestro-web");
    const QString ruffle = packageData() + QStringLiteral("/ruffle");
    settings.arguments = {ruffle};
    settings.needed = ruffle + QStringLiteral("/ruffle.js");
    return settings;
}

HelperEngine::HelperEngine(HelperSettings settings)
    : m_settings(std::move(settings))
{
    m_pings.setInterval(m_settings.secondsOfPing * 1000);
    m_pings.callOnTimeout([this] { ping(); });
}

HelperEngine::~HelperEngine()
{
    end();
}

bool HelperEngine::isAvailable()
{
    if (m_isGivenUp) return false;
    const auto machine = checkMachine(m_settings);
    if (!machine && !std::exchange(m_isExplained, true))
        logLine(QStringLiteral("No web content: ") + machine.error());
    return machine.isOk();
}

Result<void> checkMachine(const HelperSettings& settings)
{
    for (const QString& file : {settings.program, settings.needed})
        if (!file.isEmpty() && !QFileInfo(file).isFile())
            return Error{file + QStringLiteral(" is not there")};
    if (geteuid() == 0 && qEnvironmentVariableIsEmpty("QTWEBENGINE_DISABLE_SANDBOX"))
        return Error{QStringLiteral("the browser's sandbox does not work for root")};
    return {};
}

void HelperEngine::endUnused()
{
    if (m_views.empty()) end();
}

std::unique_ptr<WebView> HelperEngine::makeWebView(const Rect& frame)
{
    return std::make_unique<HelperView>(frame, *this, ++m_lastNumber);
}

void HelperEngine::join(HelperView& view)
{
    m_views[view.number()] = &view;
    if (m_channel || (isAvailable() && start())) return;
    view.helperIsGone();
}

void HelperEngine::stopFetching()
{
    for (const auto& [number, view] : m_views)
        view->stopFetching();
}

void HelperEngine::leave(const HelperView& view)
{
    m_views.erase(view.number());
}

bool HelperEngine::send(const WebMessage& message)
{
    return m_channel && m_channel->send(message);
}

bool HelperEngine::start()
{
    auto line = WebChannel::makePair();
    m_home = ProfileFolder::make(temporaryFolder());
    if (line && m_home) {
        auto process = startHelper(m_settings.program, m_home->path(), m_settings.arguments, line->second);
        if (process) m_process = std::move(process.value());
    }
    if (!m_process) {
        logLine(QStringLiteral("No web content: %1 cannot be started").arg(m_settings.program));
        m_isGivenUp = true;
        return false;
    }
    m_channel = std::make_unique<WebChannel>(
        std::move(line->first), WebSpeaker::Helper, [this](const WebMessage& message) { receive(message); },
        [this] { lose(QStringLiteral("ended")); });
    m_isReady = false;
    m_unanswered = 0;
    m_heard = 0;
    m_handedOver = 0;
    m_isAsked = false;
    m_pings.start();
    return true;
}

Descriptor HelperEngine::share(const QByteArray& bytes)
{
    if (m_handedOver + bytes.size() > Bounds::webBytesAPing) return {};
    m_handedOver += bytes.size();
    return sharedBytes(bytes);
}

void HelperEngine::receive(const WebMessage& message)
{
    if (++m_heard > Bounds::webMessagesAPing) return lose(QStringLiteral("says too much"));
    if (message.kind == WebMessage::Kind::Hello && !std::exchange(m_isReady, true)) m_unanswered = 0;
    if (message.kind == WebMessage::Kind::Pong) hearPong(message.generation);
    const auto view = m_views.find(message.view);
    if (view != m_views.end()) view->second->receive(message);
}

void HelperEngine::hearPong(quint32 question)
{
    if (!m_isAsked || question != m_question) return;
    m_isAsked = false;
    m_unanswered = 0;
    m_handedOver = 0;
}

void HelperEngine::ping()
{
    m_heard = 0;
    const int most = m_isReady ? m_settings.mostUnanswered : m_settings.mostUnansweredAtStart;
    if (m_unanswered++ >= most) return lose(QStringLiteral("does not answer"));
    const HelperLoad load = loadOf(m_process->number());
    if (load.bytes > m_settings.most.bytes) return lose(QStringLiteral("takes too much memory"));
    if (load.processes > m_settings.most.processes) return lose(QStringLiteral("starts too many processes"));
    if (load.threads > m_settings.most.threads) return lose(QStringLiteral("starts too many threads"));
    if (!m_isReady) return;
    WebMessage ping;
    ping.generation = m_question = QRandomGenerator::system()->generate();
    m_isAsked = true;
    if (!send(ping)) lose(QStringLiteral("does not listen"));
}

// Every page is black now; with a new helper they begin anew.
void HelperEngine::lose(const QString& how)
{
    end();
    const bool goesOn = m_restarts < m_settings.mostRestarts;
    logLine(
        QStringLiteral("Web content: the helper %1; %2")
            .arg(how, goesOn ? QStringLiteral("it is started again") : QStringLiteral("all stays black")));
    const auto views = m_views;
    for (const auto& [number, view] : views)
        view->helperIsGone();
    m_isGivenUp = !goesOn;
    if (!goesOn) return;
    ++m_restarts;
    if (views.empty() || !start()) return; // the next page starts it
    for (const auto& [number, view] : views)
        view->begin();
}

void HelperEngine::end()
{
    m_pings.stop();
    m_channel.reset();
    m_process.reset();
    m_home.reset();
}

} // namespace kestro
