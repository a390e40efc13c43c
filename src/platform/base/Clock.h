#pragma once

#include <QDate>

namespace kestro {

/// Tells the time to whatever measures spans of it. Passed in wherever time matters, so that tests can turn
/// it by hand. Main thread.
class Clock {
public:
    virtual ~Clock() = default;

    /// Seconds since a moment fixed for the life of the process; never goes back.
    [[nodiscard]] virtual double now() const = 0;
    /// The date where the machine is.
    [[nodiscard]] virtual QDate today() const = 0;
};

/// The machine's steady clock.
class SystemClock final : public Clock {
public:
    [[nodiscard]] double now() const override;
    [[nodiscard]] QDate today() const override { return QDate::currentDate(); }
};

/// A clock that stands still until it is turned.
class ManualClock final : public Clock {
public:
    [[nodiscard]] double now() const override { return m_now; }
    [[nodiscard]] QDate today() const override { return m_today; }

    /// Turns the clock forward by `seconds`, which must not be negative.
    void advance(double seconds);
    void setToday(QDate today) { m_today = today; }

private:
    double m_now = 0.0;
    QDate m_today{2008, 3, 14};
};

} // namespace kestro
