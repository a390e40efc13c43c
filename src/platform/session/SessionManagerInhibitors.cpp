#include "platform/session/SessionManagerInhibitors.h"

#include "platform/base/Bounds.h"
#include "platform/session/CallsLeft.h"

#include <QDBusArgument>
#include <QDBusObjectPath>

#include <algorithm>

namespace kestro {

namespace {

const QString service = QStringLiteral("org.gnome.SessionManager");
constexpr uint idle = 8; // of the flags: "inhibit the session being marked as idle"

} // namespace

/// One look, and what was answered so far.
struct SessionManagerInhibitors::Round {
    Found found;
    QDeadlineTimer until{SessionFact::patience};
    QList<Hindrance> named;
};

SessionManagerInhibitors::SessionManagerInhibitors(const QDBusConnection& sessionBus)
    : m_manager(sessionBus, {service, QStringLiteral("/org/gnome/SessionManager"), service})
{
    for (const auto& signal : {QStringLiteral("InhibitorAdded"), QStringLiteral("InhibitorRemoved")})
        m_manager.listen(signal, [this](const QDBusMessage&) { refresh(); });
    m_manager.listenToProperties([this] { refresh(); });
    m_manager.listenToOwner([this](bool) { refresh(); });
    refresh();
}

void SessionManagerInhibitors::look(Found found)
{
    const auto round = std::make_shared<Round>();
    round->found = std::move(found);
    m_manager.property(
        QStringLiteral("InhibitedActions"),
        [this, round](const std::optional<QVariant>& actions) {
            if (!actions || !(actions->toUInt() & idle)) return round->found({});
            askInhibitors(round);
        },
        round->until);
}

/// Who it is, is but a courtesy: whoever does not say it still inhibits.
void SessionManagerInhibitors::askInhibitors(const std::shared_ptr<Round>& round)
{
    const auto finish = [round] {
        round->found(round->named.isEmpty() ? QList<Hindrance>{{HindranceKind::Inhibited, {}, {}}}
                                            : round->named);
    };
    m_manager.call(
        QStringLiteral("GetInhibitors"), {},
        [this, round, finish](const BusObject::Answer& answer) {
            QList<QDBusObjectPath> paths;
            if (answer) paths = qdbus_cast<QList<QDBusObjectPath>>(answer->value(0));
            paths.resize(std::min<qsizetype>(paths.size(), Bounds::inhibitorsAsked));
            if (paths.isEmpty()) return finish();
            const auto answered = afterCalls(static_cast<int>(paths.size()), finish);
            for (const QDBusObjectPath& path : paths)
                askOne(round, path.path(), answered);
        },
        round->until);
}

void SessionManagerInhibitors::askOne(const std::shared_ptr<Round>& round, const QString& path,
                                      const std::function<void()>& onAnswer)
{
    struct Told {
        uint flags = 0;
        Hindrance inhibitor;
    };
    const auto told = std::make_shared<Told>();
    const auto answered = afterCalls(3, [round, told, onAnswer] {
        if ((told->flags & idle) && !told->inhibitor.who.isEmpty()) round->named.append(told->inhibitor);
        onAnswer();
    });
    const auto get = [&](const QString& method, const std::function<void(const QVariant&)>& set) {
        const auto take = [set, answered](const BusObject::Answer& answer) {
            if (answer) set(answer->value(0));
            answered();
        };
        m_manager.callOn(path, service + QStringLiteral(".Inhibitor"), method, take, round->until);
    };
    get(QStringLiteral("GetFlags"), [told](const QVariant& value) { told->flags = value.toUInt(); });
    get(QStringLiteral("GetAppId"),
        [told](const QVariant& value) { told->inhibitor.who = plainWords(value.toString()); });
    get(QStringLiteral("GetReason"),
        [told](const QVariant& value) { told->inhibitor.why = plainWords(value.toString()); });
}

} // namespace kestro
