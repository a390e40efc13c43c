#pragma once

#include "settings/Sunlight.h"

#include <QDateTime>

#include <functional>

namespace kestro {

struct PlayTime;

/// Tells what time of the day it is where the person is, by the machine's clock: day while the sun is up
/// there, or from 7 to 19 o'clock where the place is not known. A value. Main thread.
class DayClock final {
public:
    // Newer releases of Qt have two functions of that name.
    explicit DayClock(
        std::optional<Place> place = {},
        std::function<QDateTime()> now = [] { return QDateTime::currentDateTime(); })
        : m_place(place)
        , m_now(std::move(now))
    {
    }

    /// The moment that the questions of one pick are about.
    [[nodiscard]] QDateTime now() const { return m_now(); }
    /// Whether it is time for what plays at `time` at that moment.
    [[nodiscard]] bool isTimeFor(const PlayTime& time, const QDateTime& moment) const;

private:
    [[nodiscard]] bool isDay(const QDateTime& moment) const;

    std::optional<Place> m_place;
    std::function<QDateTime()> m_now;
};

} // namespace kestro
