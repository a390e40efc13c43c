#pragma once

#include "idle/IdleMachine.h"

#include <QJsonObject>
#include <QString>

#include <chrono>
#include <optional>

namespace kestro {

/// What the idle service is about, for a person and for other programs. A plain value.
struct IdleStatus {
    IdleMachine::State state = IdleMachine::State::Active;
    QList<Hindrance> hindrances;
    std::optional<IdleMachine::End> lastEnd;
    int crashes = 0;
    std::chrono::seconds after{};
    QString source; ///< what tells that the person is away; empty while another service does all this
    QString rival;  ///< that service; empty for none

    /// "state", "hindrances" (objects of "kind", "who", "why"), "lastEnd" or null, "crashes", "after" in
    /// seconds, "source" and "rival", each text or null.
    [[nodiscard]] QJsonObject json() const;
    /// One that json() made; what is missing or of another type is as in an IdleStatus that nobody filled in.
    [[nodiscard]] static IdleStatus from(const QJsonObject& object);
    /// One line of plain English: "away; inhibited by Firefox: playing video".
    [[nodiscard]] QString text() const;
};

/// A hindrance as it is said in such a line.
[[nodiscard]] QString textOf(const Hindrance& hindrance);

} // namespace kestro
