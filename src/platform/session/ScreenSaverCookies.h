#pragma once

#include "platform/session/SessionFact.h"

#include <QHash>

#include <cstdint>
#include <optional>

namespace kestro {

class Random;

/// What programs have asked for, that no saver starts, each under a number that only the one who asked can
/// give back. It grows no further than Bounds says, whoever asks. Owned by the service that hands the numbers
/// out. Main thread. Tested by ScreenSaverServiceTest.
class ScreenSaverCookies final {
public:
    explicit ScreenSaverCookies(Random& random);

    /// A new number, never 0; none where this caller, or all of them together, have as many as there may be.
    [[nodiscard]] std::optional<std::uint32_t> add(const QString& caller, const QString& application,
                                                   const QString& reason);
    /// Whether `cookie` was one of this caller's; it is none any more.
    bool remove(const QString& caller, std::uint32_t cookie);
    /// The caller is gone, and with it all that it asked for.
    void removeAllOf(const QString& caller);
    void clear() { m_held.clear(); }

    [[nodiscard]] bool has(const QString& caller) const;
    [[nodiscard]] QList<Hindrance> hindrances() const;

private:
    struct Held {
        QString caller;
        Hindrance hindrance;
    };

    [[nodiscard]] int countOf(const QString& caller) const;

    Random& m_random;
    QHash<std::uint32_t, Held> m_held;
};

} // namespace kestro
