#include "idle/IdleStatus.h"

#include <QJsonArray>

#include <array>
#include <utility>

namespace kestro {

namespace {

using State = IdleMachine::State;
using End = IdleMachine::End;

template <typename Kind>
struct Word {
    Kind kind;
    const char* name; ///< for machines
    const char* said; ///< for people
};

constexpr std::array<Word<State>, 5> states{{{State::Active, "active", "active"},
                                             {State::Idle, "idle", "away"},
                                             {State::Asked, "asked", "away"},
                                             {State::Showing, "showing", "showing the saver"},
                                             {State::Ended, "ended", "away; it was shown already"}}};

constexpr std::array<Word<End>, 7> ends{{{End::PersonBack, "personBack", "the person came back"},
                                         {End::ByItself, "byItself", "the saver ended by itself"},
                                         {End::Locked, "locked", "the session was locked"},
                                         {End::Asleep, "asleep", "the machine went to sleep"},
                                         {End::LidClosed, "lidClosed", "the lid was closed"},
                                         {End::Battery, "battery", "the rule for the battery asks for it"},
                                         {End::Crashed, "crashed", "the saver broke off"}}};

constexpr std::array<std::pair<HindranceKind, const char*>, 9> reasons{
    {{HindranceKind::Inhibited, "inhibited"},
     {HindranceKind::Locked, "locked"},
     {HindranceKind::Asleep, "going to sleep"},
     {HindranceKind::LidClosed, "lid closed"},
     {HindranceKind::Battery, "kept down by the rule for the battery"},
     {HindranceKind::Microphone, "microphone in use"},
     {HindranceKind::Camera, "camera in use"},
     {HindranceKind::GamePad, "game pad in use"},
     {HindranceKind::FullScreen, "full screen with sound"}}};

template <typename Table, typename Kind>
const auto& wordOf(const Table& table, Kind kind)
{
    for (const auto& word : table)
        if (word.kind == kind) return word;
    return table.front();
}

template <typename Kind, std::size_t count>
std::optional<Kind> kindNamed(const std::array<Word<Kind>, count>& table, const QString& name)
{
    for (const auto& word : table)
        if (name == QLatin1String(word.name)) return word.kind;
    return {};
}

QJsonValue orNull(const QString& text)
{
    return text.isEmpty() ? QJsonValue() : QJsonValue(text);
}

QJsonObject jsonOf(const Hindrance& hindrance)
{
    return {{QStringLiteral("kind"), nameOf(hindrance.kind)},
            {QStringLiteral("who"), hindrance.who},
            {QStringLiteral("why"), hindrance.why}};
}

std::optional<Hindrance> hindranceFrom(const QJsonObject& object)
{
    for (const auto& [kind, said] : reasons)
        if (object[QStringLiteral("kind")].toString() == nameOf(kind))
            return Hindrance{kind, object[QStringLiteral("who")].toString(),
                             object[QStringLiteral("why")].toString()};
    return {};
}

} // namespace

QJsonObject IdleStatus::json() const
{
    QJsonArray against;
    for (const Hindrance& hindrance : hindrances)
        against.append(jsonOf(hindrance));
    return {{QStringLiteral("state"), QLatin1String(wordOf(states, state).name)},
            {QStringLiteral("hindrances"), against},
            {QStringLiteral("lastEnd"),
             lastEnd ? QJsonValue(QLatin1String(wordOf(ends, *lastEnd).name)) : QJsonValue()},
            {QStringLiteral("crashes"), crashes},
            {QStringLiteral("after"), qint64(after.count())},
            {QStringLiteral("source"), orNull(source)},
            {QStringLiteral("rival"), orNull(rival)}};
}

IdleStatus IdleStatus::from(const QJsonObject& object)
{
    IdleStatus status;
    status.state = kindNamed(states, object[QStringLiteral("state")].toString()).value_or(State::Active);
    for (const QJsonValue& reason : object[QStringLiteral("hindrances")].toArray())
        if (const auto hindrance = hindranceFrom(reason.toObject())) status.hindrances.append(*hindrance);
    status.lastEnd = kindNamed(ends, object[QStringLiteral("lastEnd")].toString());
    status.crashes = object[QStringLiteral("crashes")].toInt();
    status.after = std::chrono::seconds(object[QStringLiteral("after")].toInteger());
    status.source = object[QStringLiteral("source")].toString();
    status.rival = object[QStringLiteral("rival")].toString();
    return status;
}

QString IdleStatus::text() const
{
    if (!rival.isEmpty()) return QStringLiteral("waiting; %1 looks after this session").arg(rival);
    QStringList parts{QLatin1String(wordOf(states, state).said)};
    for (const Hindrance& hindrance : hindrances)
        parts.append(textOf(hindrance));
    if (lastEnd && state != State::Showing)
        parts.append(QStringLiteral("it ended because %1").arg(QLatin1String(wordOf(ends, *lastEnd).said)));
    if (crashes > 0) parts.back() += QStringLiteral(" (%1 times in a row)").arg(crashes);
    return parts.join(QStringLiteral("; "));
}

QString textOf(const Hindrance& hindrance)
{
    QString text;
    for (const auto& [kind, said] : reasons)
        if (kind == hindrance.kind) text = QLatin1String(said);
    if (!hindrance.who.isEmpty()) text += QStringLiteral(" by ") + hindrance.who;
    if (!hindrance.why.isEmpty()) text += QStringLiteral(": ") + hindrance.why;
    return text;
}

} // namespace kestro
