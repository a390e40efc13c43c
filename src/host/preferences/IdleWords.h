#pragma once

#include "idle/IdleStatus.h"

#include <QCoreApplication>

namespace kestro {

/// What the idle service is about, in the person's language. Tested by IdlePanelTest.
class IdleWords final {
    Q_DECLARE_TR_FUNCTIONS(kestro::IdleWords)

public:
    /// One line.
    [[nodiscard]] static QString of(const IdleStatus& status);

private:
    [[nodiscard]] static QString of(const Hindrance& hindrance);
    [[nodiscard]] static QString of(HindranceKind kind);
};

} // namespace kestro
