#include "platform/session/PlasmaInhibitors.h"

#include "platform/base/Bounds.h"

#include <QDBusArgument>

namespace kestro {

namespace {

const QString service = QStringLiteral("org.kde.Solid.PowerManagement.PolicyAgent");
constexpr uint screen = 4; // of the agent's policies: "change screen settings"

struct Inhibition {
    QString who;
    QString why;
};

/// What ListInhibitions answers, an array of pairs of texts; nothing of anything else.
QList<Inhibition> inhibitionsIn(const QVariant& value)
{
    QList<Inhibition> all;
    if (!value.canConvert<QDBusArgument>()) return all;
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != QStringLiteral("a(ss)")) return all;
    argument.beginArray();
    while (!argument.atEnd() && all.size() < Bounds::inhibitorsAsked) {
        QString who;
        QString why;
        argument.beginStructure();
        argument >> who >> why;
        argument.endStructure();
        all.append({plainWords(who), plainWords(why)});
    }
    argument.endArray();
    return all;
}

/// The list does not tell who of them wants the screen: only one who is alone is known to.
Hindrance named(const QList<Inhibition>& all)
{
    if (all.size() == 1) return {HindranceKind::Inhibited, all.first().who, all.first().why};
    QStringList names;
    for (const Inhibition& one : all)
        if (!names.contains(one.who)) names.append(one.who);
    return {HindranceKind::Inhibited, plainWords(names.join(QStringLiteral(", "))), {}};
}

} // namespace

PlasmaInhibitors::PlasmaInhibitors(const QDBusConnection& sessionBus)
    : m_agent(sessionBus, {service, QStringLiteral("/org/kde/Solid/PowerManagement/PolicyAgent"), service})
{
    m_agent.listen(QStringLiteral("InhibitionsChanged"), [this](const QDBusMessage&) { refresh(); });
    m_agent.listenToOwner([this](bool) { refresh(); });
    refresh();
}

void PlasmaInhibitors::look(Found found)
{
    const QDeadlineTimer until(patience);
    const auto tellNames = [found](const BusObject::Answer& answer) {
        found({named(answer ? inhibitionsIn(answer->value(0)) : QList<Inhibition>())});
    };
    m_agent.call(
        QStringLiteral("HasInhibition"), {screen},
        [this, found, tellNames, until](const BusObject::Answer& answer) {
            if (!answer || !answer->value(0).toBool()) return found({});
            m_agent.call(QStringLiteral("ListInhibitions"), {}, tellNames, until);
        },
        until);
}

} // namespace kestro
