#pragma once

#include "platform/session/SaverOnBus.h"

#include <QVariantMap>

namespace kestro {

/// What a saver lets be heard, as desks show it of media players. A plain value.
struct HeardMovie {
    QUrl url;
    qint64 length = 0; ///< microseconds; 0 while unknown
    double volume = 1; ///< 0 silent … 1 as recorded

    [[nodiscard]] bool operator==(const HeardMovie&) const = default;
};

/// The saver as a media player of the person's session, by MPRIS 2.2: so the keys for media, and what desks
/// show of players, reach it. It is there as long as it lets a movie be heard, and no longer. It goes to
/// other movies and ends; it can neither pause nor be moved within a movie. No bus is waited for. Owned by
/// the program that shows the saver. Main thread.
class MediaPlayerOnBus final : public QDBusVirtualObject {
public:
    using Handlers = SaverOnBus::Handlers;

    /// `connect` connects to the bus, on a thread that is left behind where that hangs; nobody asks for it
    /// before something is heard.
    MediaPlayerOnBus(std::function<QDBusConnection()> connect, Handlers handlers);
    ~MediaPlayerOnBus() override;

    /// This is heard from now on, or nothing. Whoever listens is told of a change.
    void plays(const std::optional<HeardMovie>& movie);
    /// How far in it the movie is, in microseconds.
    void setPosition(qint64 position) { m_position = position; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;
    [[nodiscard]] QString introspect(const QString& path) const override;

private:
    void connectToBus();
    void appear();
    void disappear();
    void tell() const;
    [[nodiscard]] QDBusMessage answerTo(const QDBusMessage& call);
    [[nodiscard]] const std::function<void()>* handlerOf(const QString& method) const;
    [[nodiscard]] QDBusMessage propertyFor(const QDBusMessage& call) const;
    [[nodiscard]] QVariantMap properties(const QString& interface) const;
    [[nodiscard]] QVariantMap metadata() const;

    std::function<QDBusConnection()> m_connect;
    Handlers m_handlers;
    std::optional<HeardMovie> m_movie;
    int m_track = 0; ///< tells one movie from the next
    qint64 m_position = 0;
    std::unique_ptr<QDBusConnection> m_bus; ///< once connected
    std::unique_ptr<DetachedTask> m_connecting;
};

} // namespace kestro
