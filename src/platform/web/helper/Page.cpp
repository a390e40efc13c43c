#include "platform/web/helper/Page.h"

#include "platform/base/Bounds.h"
#include "platform/base/FileURL.h"
#include "platform/base/URLKind.h"
#include "platform/web/SharedBytes.h"
#include "platform/web/helper/SwfKind.h"

#include <QFile>
#include <QQmlComponent>
#include <QQuickItem>
#include <QQuickWebEngineProfile>

#include <csignal>
#include <utility>

namespace kestro {

namespace {

constexpr int secondsOfCheck = 5;
constexpr int mostUnanswered = 3;
constexpr int mostTurnsUnshown = 6;
constexpr int drawInterval = 12; // milliseconds: less than a picture lasts at the browser's own pace

const QString playingTitle = QStringLiteral("playing");
const QString failedTitle = QStringLiteral("failed: ");
const QString noSwf = QStringLiteral("it is no Flash movie");

std::unique_ptr<QQuickWebEngineProfile> makeProfile()
{
    auto profile = std::make_unique<QQuickWebEngineProfile>();
    profile->setOffTheRecord(true);
    profile->setHttpCacheType(QQuickWebEngineProfile::NoCache);
    profile->setPersistentCookiesPolicy(QQuickWebEngineProfile::NoPersistentCookies);
    return profile;
}

bool isSwfFile(const QUrl& url)
{
    QFile file(localPath(url).value_or(QString()));
    return url.isLocalFile() && file.open(QIODevice::ReadOnly) &&
           hasSwfSignature(file.read(swfSignatureLength));
}

} // namespace

Page::Page(quint32 number, const Surroundings& surroundings)
    : m_number(number)
    , m_surroundings(surroundings)
    , m_ruffle(surroundings.ruffleFolder)
    , m_sites([this](quint32 request, const QUrl& url) { askSaver(request, url); })
    , m_profile(makeProfile())
    , m_picture([this] { drawSoon(); })
{
    m_profile->setUrlRequestInterceptor(&m_rules);
    m_profile->installUrlSchemeHandler(RuffleScheme::name.toLatin1(), &m_ruffle);
    for (const QByteArray& name : SiteScheme::names)
        m_profile->installUrlSchemeHandler(name, &m_sites);
    m_drawTimer.setSingleShot(true);
    m_drawTimer.setInterval(drawInterval);
    m_drawTimer.callOnTimeout([this] { draw(); });
    m_checks.setInterval(secondsOfCheck * 1000);
    m_checks.callOnTimeout([this] { check(); });
}

Page::~Page()
{
    m_picture.setItem(nullptr);
    m_view.reset();
}

void Page::loadMovie(const QUrl& address)
{
    load(address, true);
}

void Page::loadPage(const QUrl& address)
{
    load(address, false);
}

void Page::load(const QUrl& address, bool isSwfAlone)
{
    m_isFailed = false;
    const auto path = localPath(address);
    if (path) return loadFile(QUrl::fromLocalFile(*path), isSwfAlone);
    if (isWebURL(address)) return loadFromSite(address, isSwfAlone);
    fail(QStringLiteral("neither a file nor on the web"));
}

void Page::loadFile(const QUrl& url, bool isSwfAlone)
{
    if (!QFile::exists(url.toLocalFile())) return fail(QStringLiteral("no such file"));
    if (isSwfFile(url)) return playSwf(url);
    if (isSwfAlone) return fail(noSwf);
    showPage(url, url);
}

void Page::loadFromSite(const QUrl& url, bool isSwfAlone)
{
    m_sites.ask(url, [this, url, isSwfAlone](const SiteScheme::Content& content) {
        if (!content.isThere) return fail(QString::fromUtf8(content.type));
        const bool isSwf =
            hasSwfSignature(content.bytes.first(qMin(content.bytes.size(), swfSignatureLength)));
        if (isSwfAlone && !isSwf) return fail(noSwf);
        m_sites.keep(url, content);
        if (isSwf)
            playSwf(url);
        else
            showPage(url, SiteScheme::toScheme(url));
    });
}

void Page::askSaver(quint32 request, const QUrl& url)
{
    WebMessage wish = message(WebMessage::Kind::Fetch);
    wish.request = request;
    wish.text = url.toEncoded();
    if (m_surroundings.send(wish)) return;
    // Not from within who asks.
    QMetaObject::invokeMethod(
        this, [this, request] { m_sites.come(request, {}); }, Qt::QueuedConnection);
}

void Page::fetched(const WebMessage& message)
{
    const auto bytes = message.flag ? bytesOf(message.memory, message.length) : std::nullopt;
    m_sites.come(message.request, {bytes.has_value(), bytes.value_or(QByteArray()), message.text});
}

void Page::open(PageRules::Content content, const QUrl& url)
{
    m_rules.setContent(content, url);
    m_isFailed = false;
    m_isShown = false;
    m_unanswered = 0;
    m_turnsUnshown = 0;
    m_isPlayer = content == PageRules::Content::Swf;
    m_checks.start();
    if (!m_view) showView();
}

void Page::showView()
{
    QObject* const made = m_surroundings.view.createWithInitialProperties(
        {{QStringLiteral("page"), QVariant::fromValue<QObject*>(this)},
         {QStringLiteral("profile"), QVariant::fromValue(m_profile.get())},
         {QStringLiteral("audioMuted"), m_isMuted},
         {QStringLiteral("zoomFactor"), m_zoom}});
    m_view.reset(qobject_cast<QQuickItem*>(made));
    m_picture.setItem(m_view.get());
}

void Page::playSwf(const QUrl& url)
{
    open(PageRules::Content::Swf, url);
    if (!m_view) return fail(QStringLiteral("the browser cannot be started"));
    QMetaObject::invokeMethod(m_view.get(), "loadHtml",
                              Q_ARG(QString, QString::fromUtf8(m_ruffle.playerPage(url))),
                              Q_ARG(QUrl, RuffleScheme::pageAddress(url)));
}

void Page::showPage(const QUrl& url, const QUrl& address)
{
    open(PageRules::Content::Page, url);
    if (!m_view) return fail(QStringLiteral("the browser cannot be started"));
    m_view->setProperty("url", address);
}

void Page::resize(WebMessage message)
{
    auto frames = SharedFrames::adopt(std::move(message.memory), message.size);
    if (!frames) return;
    m_generation = message.generation;
    m_zoom = message.zoom;
    if (m_view) m_view->setProperty("zoomFactor", m_zoom);
    m_picture.resize(message.size);
    m_writer.setFrames(std::move(frames));
    drawSoon();
}

void Page::setMuted(bool muted)
{
    m_isMuted = muted;
    if (m_view) m_view->setProperty("audioMuted", muted);
}

void Page::release(quint32 generation, int slot)
{
    if (generation != m_generation) return;
    m_writer.release(slot);
    if (m_isDrawWanted) drawSoon();
}

bool Page::mayNavigate(const QUrl& url)
{
    // The player's own page comes as data.
    if (m_isPlayer && !m_isShown && url.scheme() == u"data") return true;
    return m_rules.mayGoTo(url);
}

void Page::loadFailed(const QString& reason)
{
    if (!m_isShown) fail(reason.isEmpty() ? QStringLiteral("it cannot be loaded") : reason);
}

void Page::loadSucceeded()
{
    if (!m_isPlayer) m_isShown = true;
}

void Page::titleSet(const QString& title)
{
    if (!m_isPlayer) return;
    if (title == playingTitle) m_isShown = true;
    if (title.startsWith(failedTitle)) fail(title.mid(failedTitle.size()));
}

void Page::cameAsDownload(const QString& type)
{
    fail(QStringLiteral("neither a page nor an SWF (%1)").arg(type));
}

void Page::crashed()
{
    // Not from within what tells it.
    QMetaObject::invokeMethod(
        this, [this] { fail(QStringLiteral("the page crashed")); }, Qt::QueuedConnection);
}

void Page::answered(const QString& address)
{
    m_unanswered = 0;
    if (!m_isPlayer && !address.startsWith(u"about:")) m_isShown = true;
}

void Page::check()
{
    if (!m_view) return;
    if (m_unanswered >= mostUnanswered) return endHungRenderer();
    if (!m_isShown && ++m_turnsUnshown > mostTurnsUnshown)
        return fail(QStringLiteral("nothing to see after a long time"));
    ++m_unanswered;
    QMetaObject::invokeMethod(m_view.get(), "ask");
}

void Page::endHungRenderer()
{
    const auto process = m_view->property("renderProcessPid").toLongLong();
    fail(QStringLiteral("the page hangs"));
    if (process > 1) kill(static_cast<pid_t>(process), SIGKILL);
}

// From now on the page is black.
void Page::fail(const QString& reason)
{
    if (m_isFailed) return;
    m_isFailed = true;
    m_checks.stop();
    WebMessage note = message(WebMessage::Kind::Note);
    note.text = reason.toUtf8().left(Bounds::webNoteBytes);
    m_surroundings.send(note);
    m_picture.setItem(nullptr);
    if (m_view) m_view.release()->deleteLater();
    drawSoon();
}

void Page::drawSoon()
{
    m_isDrawWanted = true;
    if (!m_drawTimer.isActive()) m_drawTimer.start();
}

void Page::draw()
{
    if (!m_isDrawWanted || !m_writer.hasRoom()) return;
    m_isDrawWanted = false;
    const auto written = m_writer.write(m_picture.render());
    if (!written) return;
    WebMessage frame = message(WebMessage::Kind::Frame);
    frame.generation = m_generation;
    frame.slot = written->slot;
    frame.damage = written->damage;
    m_surroundings.send(frame);
}

WebMessage Page::message(WebMessage::Kind kind) const
{
    WebMessage message;
    message.kind = kind;
    message.view = m_number;
    return message;
}

} // namespace kestro
