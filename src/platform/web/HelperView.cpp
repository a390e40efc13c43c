#include "platform/web/HelperView.h"

#include "platform/base/Bounds.h"
#include "platform/base/Log.h"
#include "platform/base/ShownURL.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/scene/ScreenMapping.h"
#include "platform/display/surface/Surface.h"
#include "platform/display/view/ViewGeometry.h"
#include "platform/display/view/Window.h"
#include "platform/web/HelperEngine.h"
#include "platform/web/SharedFrames.h"

#include <QTimer>

#include <utility>

namespace kestro {

HelperView::HelperView(const Rect& frame, HelperEngine& engine, quint32 number)
    : WebView(frame)
    , m_engine(engine)
    , m_number(number)
{
    setLayer(&m_layer);
}

HelperView::~HelperView()
{
    stopLoading();
}

void HelperView::loadMovie(const QUrl& url)
{
    load(url, WebMessage::Kind::LoadMovie);
}

void HelperView::loadRequest(const QUrl& url)
{
    load(url, WebMessage::Kind::LoadPage);
}

void HelperView::load(const QUrl& url, WebMessage::Kind how)
{
    m_url = url;
    m_how = how;
    m_requests.reset();
    m_isLoadTold = false;
    m_engine.join(*this);
    schedule();
}

void HelperView::setMuted(bool muted)
{
    if (muted == m_isMuted) return;
    m_isMuted = muted;
    m_isToldMuted = false;
    schedule();
}

void HelperView::stopLoading()
{
    if (!m_url.isEmpty()) m_engine.send(message(WebMessage::Kind::Stop));
    m_engine.leave(*this);
    m_url.clear();
    helperIsGone();
}

void HelperView::setFrame(const Rect& frame)
{
    WebView::setFrame(frame);
    schedule();
}

void HelperView::setFrameSize(Size size)
{
    WebView::setFrameSize(size);
    schedule();
}

void HelperView::begin()
{
    m_requests.reset();
    m_frames.reset();
    m_shownSlot = -1;
    m_isToldMuted = false;
    m_isLoadTold = m_url.isEmpty();
    schedule();
}

void HelperView::helperIsGone()
{
    m_requests.reset();
    m_frames.reset();
    m_shownSlot = -1;
    m_layer.showBlack();
}

void HelperView::schedule()
{
    if (std::exchange(m_isScheduled, true)) return;
    QMetaObject::invokeMethod(
        &m_context, [this] { tellAll(); }, Qt::QueuedConnection);
}

void HelperView::tellAll()
{
    m_isScheduled = false;
    if (m_url.isEmpty() || !m_engine.isRunning()) return;
    tellSize();
    if (!std::exchange(m_isToldMuted, true)) {
        WebMessage sound = message(WebMessage::Kind::Mute);
        sound.flag = m_isMuted;
        m_engine.send(sound);
    }
    if (!std::exchange(m_isLoadTold, true)) tellAddress();
}

void HelperView::tellSize()
{
    const QSize size = pixelSize().boundedTo({SharedFrames::longestSide, SharedFrames::longestSide});
    if (size.isEmpty() || (m_frames && m_frames->size() == size)) return;
    std::shared_ptr<SharedFrames> frames = SharedFrames::make(size);
    if (!frames) return;
    m_frames = std::move(frames);
    m_shownSlot = -1;
    WebMessage resize = message(WebMessage::Kind::Resize);
    resize.generation = ++m_generation;
    resize.size = size;
    resize.zoom = pixelsPerPoint();
    resize.memory = m_frames->share();
    m_engine.send(resize);
}

void HelperView::tellAddress()
{
    m_isNoted = false;
    m_requests = std::make_unique<PageRequests>(
        m_url, [this](quint32 request, const PageRequests::Answer& answer) { handOver(request, answer); });
    WebMessage load = message(m_how);
    load.text = m_url.toEncoded();
    if (m_engine.send(load)) return;
    logNote("cannot be shown");
    m_layer.showBlack();
}

WebMessage HelperView::message(WebMessage::Kind kind) const
{
    WebMessage message;
    message.kind = kind;
    message.view = m_number;
    return message;
}

QSize HelperView::pixelSize() const
{
    const Window* const in = window();
    if (in && in->screen()) return mappingOf(*in->screen()).pixelRect(globalRect(*this)).size();
    return QSizeF(bounds().size.width, bounds().size.height).toSize();
}

float HelperView::pixelsPerPoint() const
{
    const Window* const in = window();
    return in && in->screen() ? static_cast<float>(in->screen()->surface().pixelRatio()) : 1.0F;
}

void HelperView::receive(const WebMessage& message)
{
    if (message.kind == WebMessage::Kind::Frame) showFrame(message);
    if (message.kind == WebMessage::Kind::Note) logNote(message.text);
    if (message.kind == WebMessage::Kind::Fetch) fetch(message);
}

// Once for each load, however often the helper says something, and in plain characters, whatever it says.
void HelperView::logNote(const QByteArray& text)
{
    if (std::exchange(m_isNoted, true)) return;
    QString plain = QString::fromUtf8(text).simplified();
    for (QChar& each : plain)
        if (!each.isPrint()) each = u'?';
    logLine(QStringLiteral("Web content: %1: %2").arg(shownURL(m_url), plain));
}

void HelperView::fetch(const WebMessage& wish)
{
    if (m_requests) m_requests->ask(wish.request, QUrl::fromEncoded(wish.text));
}

void HelperView::handOver(quint32 request, const PageRequests::Answer& answer)
{
    WebMessage fetched = message(WebMessage::Kind::Fetched);
    fetched.request = request;
    if (answer) {
        fetched.memory = m_engine.share(answer.value().bytes);
        fetched.length = answer.value().bytes.size();
        fetched.text = answer.value().type.toUtf8().left(Bounds::webTextBytes);
    } else {
        fetched.text = answer.error().toUtf8().left(Bounds::webNoteBytes);
    }
    fetched.flag = fetched.memory.isOpen();
    if (answer && !fetched.flag) fetched.text = "too much at once";
    m_engine.send(fetched);
}

void HelperView::showFrame(const WebMessage& frame)
{
    if (!m_frames || frame.generation != m_generation || !SharedFrames::isSlot(frame.slot)) return;
    const int before = std::exchange(m_shownSlot, frame.slot);
    m_layer.showFrame(m_frames, frame.slot);
    if (before < 0 || before == frame.slot) return;
    WebMessage release = message(WebMessage::Kind::Release);
    release.generation = m_generation;
    release.slot = before;
    m_engine.send(release);
}

} // namespace kestro
