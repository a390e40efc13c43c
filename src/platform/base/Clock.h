#pragma once

#include <QDateTime>

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
    /// The date and the time of day where the machine is. It may be set, and so go back.
    [[nodiscard]] virtual QDateTime wallTime() const = 0;
};

/// The machine's steady clock.
class SystemClock final : public Clock {
public:
    [[nodiscard]] double now() const override;
    [[nodiscard]] QDate today() const override { return QDate::currentDate(); }
    [[nodiscard]] QDateTime wallTime() const override { return QDateTime::currentDateTime(); }
};

/// A clock that stands still until it is turned, and the time of day with it.
class ManualClock final : public Clock {
public:
    [[nodiscard]] double now() const override { return m_now; }
    [[nodiscard]] QDate today() const override { return m_wallTime.date(); }
    [[nodiscard]] QDateTime wallTime() const override { return m_wallTime; }

    /// Turns the clock forward by `seconds`, which must not be negative.
    void advance(double seconds);
    void setToday(QDate today) { m_wallTime.setDate(today); }
    void setWallTime(const QDateTime& time) { m_wallTime = time; }

private:
    double m_now = 0.0;
    QDateTime m_wallTime{QDate{2008, 3, 14}, QTime{0, 0}};
};

} // namespace kestro
