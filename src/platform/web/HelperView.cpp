#include "platform/web/HelperView.h"

#include "platform/base/Log.h"
#include "platform/display/Screen.h"
#include "platform/display/ScreenMapping.h"
#include "platform/display/Surface.h"
#include "platform/display/ViewGeometry.h"
#include "platform/display/Window.h"
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

void HelperView::loadRequest(const QUrl& url)
{
    m_url = url;
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
    m_frames.reset();
    m_shownSlot = -1;
    m_isToldMuted = false;
    m_isLoadTold = m_url.isEmpty();
    schedule();
}

void HelperView::helperIsGone()
{
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
    WebMessage load = message(WebMessage::Kind::Load);
    load.text = m_url.toEncoded();
    if (m_engine.send(load)) return;
    logLine(QStringLiteral("Web content: %1 cannot be shown").arg(m_url.toDisplayString().left(200)));
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
    if (message.kind == WebMessage::Kind::Note)
        logLine(QStringLiteral("Web content: %1: %2")
                    .arg(m_url.toDisplayString().left(200), QString::fromUtf8(message.text).simplified()));
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
