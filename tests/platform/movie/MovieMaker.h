#pragma once

#include "platform/base/Clock.h"
#include "platform/movie/MemoryMovie.h"
#include "platform/movie/MovieTest.h"

#include <functional>
#include <memory>

namespace kestro {

/// Makes movies of one kind (320x180, no sound) and lets their time pass. Owned by a test.
class MovieMaker {
public:
    virtual ~MovieMaker() = default;
    /// One of two seconds.
    [[nodiscard]] virtual std::shared_ptr<QTMovie> movie() = 0;
    /// One of 0.4 seconds.
    [[nodiscard]] virtual std::shared_ptr<QTMovie> shortMovie() = 0;
    /// Lets time pass until `done`; answers whether it came to be in reasonable time.
    [[nodiscard]] virtual bool wait(const std::function<bool()>& done) = 0;
};

class MemoryMovieMaker final : public MovieMaker {
public:
    std::shared_ptr<QTMovie> movie() override { return make(2); }
    std::shared_ptr<QTMovie> shortMovie() override { return make(0.4); }
    bool wait(const std::function<bool()>& done) override
    {
        for (int tick = 0; tick < 1000; ++tick) {
            if (done()) return true;
            m_clock.advance(0.01);
        }
        return false;
    }

private:
    std::shared_ptr<QTMovie> make(double seconds)
    {
        const MemoryMovieDescription description{.naturalSize = {320, 180}, .seconds = seconds};
        return std::make_shared<MemoryMovie>(QUrl(QStringLiteral("file:///m.mov")), description, m_clock);
    }

    ManualClock m_clock;
};

class MpvMovieMaker final : public MovieMaker {
public:
    std::shared_ptr<QTMovie> movie() override { return openMovie(testMovie("plain.mp4")); }
    std::shared_ptr<QTMovie> shortMovie() override { return openMovie(testMovie("short.mp4")); }
    bool wait(const std::function<bool()>& done) override { return waitUntil(done); }
};

} // namespace kestro
