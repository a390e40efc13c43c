#pragma once

#include "platform/web/PageLayer.h"
#include "platform/web/PageRequests.h"
#include "platform/web/WebMessage.h"
#include "platform/web/WebView.h"

#include <QObject>
#include <QString>
#include <QUrl>

#include <memory>

namespace kestro {

class HelperEngine;
class SharedFrames;

/// A page that the web helper draws. It tells the helper its address and size, fetches what the page needs
/// of its own site, and shows the pictures that come back; black while there is no helper. Changes are told
/// one turn of the event loop later, the last of several alone. Made by HelperEngine, which must outlive it.
/// Main thread. Tested by HelperEngineTest.
class HelperView final : public WebView {
public:
    HelperView(const Rect& frame, HelperEngine& engine, quint32 number);
    ~HelperView() override;

    void loadMovie(const QUrl& url) override;
    void loadRequest(const QUrl& url) override;
    void setMuted(bool muted) override;
    void stopLoading() override;
    void setFrame(const Rect& frame) override;
    void setFrameSize(Size size) override;

    // for the engine
    [[nodiscard]] quint32 number() const { return m_number; }
    /// A helper is there that knows nothing yet.
    void begin();
    /// The helper is gone, and with it the page.
    void helperIsGone();
    void receive(const WebMessage& message);
    void stopFetching() { m_requests.reset(); }

private:
    void load(const QUrl& url, WebMessage::Kind how);
    void schedule();
    void tellAll();
    void tellSize();
    void tellAddress();
    [[nodiscard]] WebMessage message(WebMessage::Kind kind) const;
    [[nodiscard]] QSize pixelSize() const;
    [[nodiscard]] float pixelsPerPoint() const;
    void showFrame(const WebMessage& frame);
    void logNote(const QByteArray& text);
    void fetch(const WebMessage& wish);
    void handOver(quint32 request, const PageRequests::Answer& answer);

    HelperEngine& m_engine;
    const quint32 m_number;
    PageLayer m_layer;
    QUrl m_url;
    WebMessage::Kind m_how = WebMessage::Kind::LoadMovie; ///< how m_url is loaded
    std::unique_ptr<PageRequests> m_requests;             ///< null while no helper knows the address
    bool m_isMuted = true;
    bool m_isToldMuted = false; ///< the helper knows what m_isMuted is
    bool m_isLoadTold = true;   ///< the helper knows the address
    bool m_isNoted = false;     ///< the log says what became of the address
    bool m_isScheduled = false;
    /// Where the helper writes; shared with the layer.
    std::shared_ptr<SharedFrames> m_frames;
    quint32 m_generation = 0; ///< of m_frames
    int m_shownSlot = -1;     ///< of m_frames; -1 while none of it is shown
    QObject m_context;        ///< what is posted to this view goes with it
};

} // namespace kestro
