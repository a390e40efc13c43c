#pragma once

#include "platform/session/MovieNow.h"

#include <QDBusVirtualObject>

#include <functional>
#include <memory>
#include <optional>

class QDBusConnection;

namespace kestro {

class DetachedTask;

/// How other programs of the person's session reach the saver that runs: the object /org/kestro/Saver1 of the
/// name org.kestro.Saver1 on the session's bus. Whoever is on that bus may call it, so there is nothing to be
/// had but what stands here. A second saver waits for the name until the first one ends. No bus is waited
/// for; without one nobody is reached. Owned by the program that shows the saver. Main thread.
class SaverOnBus final : public QDBusVirtualObject {
public:
    /// Each is called from the event loop, once the caller has its answer under way.
    struct Handlers {
        std::function<void()> next;
        std::function<void()> previous;
        std::function<void()> stop;
    };

    /// `connect` connects to the bus, on a thread that is left behind where that hangs.
    SaverOnBus(std::function<QDBusConnection()> connect, Handlers handlers);
    ~SaverOnBus() override;

    /// What connects to the bus that this process finds.
    [[nodiscard]] static std::function<QDBusConnection()> sessionBus();

    /// This is what it shows from now on; an empty address for no movie. Whoever listens is told of a change.
    void shows(const QUrl& url);

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;
    [[nodiscard]] QString introspect(const QString& path) const override;

private:
    void serve(const QDBusConnection& bus);
    void tell() const;
    [[nodiscard]] QDBusMessage answerTo(const QDBusMessage& call);
    [[nodiscard]] QDBusMessage propertyFor(const QDBusMessage& call) const;
    [[nodiscard]] const std::function<void()>* handlerOf(const QString& method) const;

    Handlers m_handlers;
    MovieNow m_now;
    std::unique_ptr<QDBusConnection> m_bus; ///< once connected
    std::unique_ptr<DetachedTask> m_connecting;
};

} // namespace kestro
