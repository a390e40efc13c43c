#include "platform/session/MediaPlayerOnBus.h"

#include "platform/base/DetachedTask.h"
#include "platform/base/PostTo.h"
#include "platform/session/BusObject.h"

#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QStringList>

#include <utility>

namespace kestro {

namespace {

const QString busName = QStringLiteral("org.mpris.MediaPlayer2.kestro");
const QString objectPath = QStringLiteral("/org/mpris/MediaPlayer2");
const QString rootInterface = QStringLiteral("org.mpris.MediaPlayer2");
const QString playerInterface = QStringLiteral("org.mpris.MediaPlayer2.Player");
const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");

const char description[] = R"(<interface name="org.mpris.MediaPlayer2">
<method name="Raise"/>
<method name="Quit"/>
<property name="CanQuit" type="b" access="read"/>
<property name="CanRaise" type="b" access="read"/>
<property name="HasTrackList" type="b" access="read"/>
<property name="Identity" type="s" access="read"/>
<property name="DesktopEntry" type="s" access="read"/>
<property name="SupportedUriSchemes" type="as" access="read"/>
<property name="SupportedMimeTypes" type="as" access="read"/>
</interface>
<interface name="org.mpris.MediaPlayer2.Player">
<method name="Next"/>
<method name="Previous"/>
<method name="Pause"/>
<method name="PlayPause"/>
<method name="Stop"/>
<method name="Play"/>
<method name="Seek"><arg name="Offset" type="x" direction="in"/></method>
<method name="SetPosition"><arg name="TrackId" type="o" direction="in"/><arg name="Position" type="x" direction="in"/></method>
<method name="OpenUri"><arg name="Uri" type="s" direction="in"/></method>
<signal name="Seeked"><arg name="Position" type="x"/></signal>
<property name="PlaybackStatus" type="s" access="read"/>
<property name="Rate" type="d" access="read"/>
<property name="MinimumRate" type="d" access="read"/>
<property name="MaximumRate" type="d" access="read"/>
<property name="Metadata" type="a{sv}" access="read"/>
<property name="Volume" type="d" access="read"/>
<property name="Position" type="x" access="read"/>
<property name="CanGoNext" type="b" access="read"/>
<property name="CanGoPrevious" type="b" access="read"/>
<property name="CanPlay" type="b" access="read"/>
<property name="CanPause" type="b" access="read"/>
<property name="CanSeek" type="b" access="read"/>
<property name="CanControl" type="b" access="read"/>
</interface>
)";

/// What a player that cannot do them answers and leaves undone.
const QStringList withoutEffect{QStringLiteral("Raise"),       QStringLiteral("Pause"),
                                QStringLiteral("PlayPause"),   QStringLiteral("Play"),
                                QStringLiteral("SetPosition"), QStringLiteral("Seek")};

} // namespace

MediaPlayerOnBus::MediaPlayerOnBus(std::function<QDBusConnection()> connect, Handlers handlers)
    : m_connect(std::move(connect))
    , m_handlers(std::move(handlers))
{
}

MediaPlayerOnBus::~MediaPlayerOnBus()
{
    if (m_bus && m_movie) disappear();
}

void MediaPlayerOnBus::plays(const std::optional<HeardMovie>& movie)
{
    if (m_movie == movie) return;
    const auto before = std::exchange(m_movie, movie);
    if (movie && (!before || before->url != movie->url)) ++m_track;
    if (!m_bus) return connectToBus();
    if (!before) return appear();
    if (!movie) return disappear();
    tell();
}

void MediaPlayerOnBus::connectToBus()
{
    if (m_connecting || !m_connect) return;
    m_connecting = DetachedTask::start<QDBusConnection>(
        QStringLiteral("the session's bus"), std::chrono::milliseconds(SessionFact::patience),
        std::exchange(m_connect, {}), [this](const std::optional<QDBusConnection>& bus) {
            if (!bus || !bus->isConnected()) return;
            m_bus = std::make_unique<QDBusConnection>(*bus);
            if (m_movie) appear();
        });
}

void MediaPlayerOnBus::appear()
{
    m_bus->registerVirtualObject(objectPath, this);
    requestName(*m_bus, busName);
}

void MediaPlayerOnBus::disappear()
{
    m_bus->unregisterObject(objectPath);
    releaseName(*m_bus, busName);
}

void MediaPlayerOnBus::tell() const
{
    auto changed =
        QDBusMessage::createSignal(objectPath, propertiesInterface, QStringLiteral("PropertiesChanged"));
    changed.setArguments(
        {playerInterface,
         QVariantMap{{QStringLiteral("Metadata"), metadata()}, {QStringLiteral("Volume"), m_movie->volume}},
         QStringList()});
    m_bus->send(changed);
}

bool MediaPlayerOnBus::handleMessage(const QDBusMessage& message, const QDBusConnection& connection)
{
    const QString interface = message.interface();
    if (interface == propertiesInterface)
        connection.send(propertyFor(message));
    else if (interface == rootInterface || interface == playerInterface)
        connection.send(answerTo(message));
    else
        return false;
    return true;
}

QDBusMessage MediaPlayerOnBus::answerTo(const QDBusMessage& call)
{
    if (const auto* const handler = handlerOf(call.member())) {
        postTo(*this, *handler);
        return call.createReply();
    }
    if (withoutEffect.contains(call.member())) return call.createReply();
    return call.createErrorReply(QDBusError::NotSupported, QStringLiteral("The saver does not do that"));
}

const std::function<void()>* MediaPlayerOnBus::handlerOf(const QString& method) const
{
    if (method == u"Next") return &m_handlers.next;
    if (method == u"Previous") return &m_handlers.previous;
    if (method == u"Stop" || method == u"Quit") return &m_handlers.stop;
    return nullptr;
}

QDBusMessage MediaPlayerOnBus::propertyFor(const QDBusMessage& call) const
{
    const QVariantList words = call.arguments();
    const QVariantMap all = properties(words.value(0).toString());
    if (call.member() == u"GetAll" && words.size() == 1) return call.createReply(all);
    const auto asked = all.constFind(words.value(1).toString());
    if (call.member() == u"Get" && words.size() == 2 && asked != all.constEnd())
        return call.createReply(QVariant::fromValue(QDBusVariant(*asked)));
    if (call.member() == u"Set")
        return call.createErrorReply(QDBusError::PropertyReadOnly, QStringLiteral("It cannot be set"));
    return call.createErrorReply(QDBusError::UnknownProperty, QStringLiteral("No such property"));
}

QVariantMap MediaPlayerOnBus::properties(const QString& interface) const
{
    if (interface == rootInterface)
        return {{QStringLiteral("CanQuit"), true},
                {QStringLiteral("CanRaise"), false},
                {QStringLiteral("HasTrackList"), false},
                {QStringLiteral("Identity"), QStringLiteral("Kestro")},
                {QStringLiteral("DesktopEntry"), QStringLiteral("kestro-settings")},
                {QStringLiteral("SupportedUriSchemes"), QStringList()},
                {QStringLiteral("SupportedMimeTypes"), QStringList()}};
    if (interface != playerInterface) return {};
    return {
        {QStringLiteral("PlaybackStatus"), m_movie ? QStringLiteral("Playing") : QStringLiteral("Stopped")},
        {QStringLiteral("Rate"), 1.0},
        {QStringLiteral("MinimumRate"), 1.0},
        {QStringLiteral("MaximumRate"), 1.0},
        {QStringLiteral("Metadata"), metadata()},
        {QStringLiteral("Volume"), m_movie ? m_movie->volume : 0.0},
        {QStringLiteral("Position"), m_position},
        {QStringLiteral("CanGoNext"), true},
        {QStringLiteral("CanGoPrevious"), true},
        {QStringLiteral("CanPlay"), false},
        {QStringLiteral("CanPause"), false},
        {QStringLiteral("CanSeek"), false},
        {QStringLiteral("CanControl"), true}};
}

QVariantMap MediaPlayerOnBus::metadata() const
{
    if (!m_movie) return {};
    const MovieNow now = MovieNow::of(m_movie->url);
    const QDBusObjectPath track(QStringLiteral("/org/kestro/track/%1").arg(m_track));
    QVariantMap map{{QStringLiteral("mpris:trackid"), QVariant::fromValue(track)},
                    {QStringLiteral("xesam:title"), now.title},
                    {QStringLiteral("xesam:url"), now.url}};
    if (m_movie->length > 0) map.insert(QStringLiteral("mpris:length"), m_movie->length);
    return map;
}

QString MediaPlayerOnBus::introspect(const QString&) const
{
    return QString::fromLatin1(description);
}

} // namespace kestro
